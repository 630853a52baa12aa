#include "platform/qt/menu/DialogBox.h"

#include <QDialogButtonBox>
#include <QFont>
#include <QFrame>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShowEvent>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/menu/WrappedLabel.h"

namespace tilwin::qt {
namespace {

constexpr QSize fieldSize{360, 24};
constexpr int margin = 20;
constexpr int betweenTexts = 8;
constexpr int betweenParts = 16;
/// A longer message scrolls.
constexpr double tallestMessage = 0.5;  // of the display's height

/// A label without a letter that the Alt key chooses.
QString buttonText(QString title) { return title.replace('&', "&&"); }

QFont titleFont(QFont font) {
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.15);
  return font;
}

}  // namespace

DialogBox::DialogBox(const DialogText& text, const DialogControls& controls) {
  setWindowTitle("Tilwin");
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
  setAccessibleName(QString::fromStdString(text.title));
  setAccessibleDescription(QString::fromStdString(text.message));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(0);
  column->setSizeConstraint(QLayout::SetFixedSize);
  addTexts(*column, text);
  if (controls.placeholder) addField(*column, QString::fromStdString(text.title), *controls.placeholder);
  addButtons(*column, controls);
}

QString DialogBox::entered() const { return field_ == nullptr ? QString() : field_->text(); }

void DialogBox::bringToFront() {
  raise();
  activateWindow();
}

void DialogBox::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (event->spontaneous()) return;
  // A window manager leaves a window behind that was asked for before the user's last input elsewhere. By now
  // Qt knows the server's time from the window's own events and can ask again.
  QTimer::singleShot(0, this, [this] { bringToFront(); });
}

void DialogBox::addTexts(QVBoxLayout& column, const DialogText& text) {
  column.addWidget(
      new WrappedLabel(QString::fromStdString(text.title), titleFont(font()), fieldSize.width()));
  if (text.message.empty()) return;
  column.addSpacing(betweenTexts);
  addMessage(column, QString::fromStdString(text.message));
}

void DialogBox::addMessage(QVBoxLayout& column, const QString& message) {
  const int tallest = static_cast<int>(screen()->availableGeometry().height() * tallestMessage);
  auto* label = new WrappedLabel(message, font(), fieldSize.width());
  column.addWidget(label);
  if (label->minimumHeight() <= tallest) return;
  auto* scrolling = new QScrollArea;
  scrolling->setFrameShape(QFrame::NoFrame);
  scrolling->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scrolling->setFixedSize(fieldSize.width(), tallest);
  const int bar = scrolling->verticalScrollBar()->sizeHint().width();
  scrolling->setWidget(new WrappedLabel(message, font(), fieldSize.width() - bar));
  delete column.replaceWidget(label, scrolling);
  delete label;
}

void DialogBox::addField(QVBoxLayout& column, const QString& name, const QString& placeholder) {
  field_ = new QLineEdit;
  field_->setFixedSize(fieldSize);
  field_->setPlaceholderText(placeholder);
  field_->setAccessibleName(name);
  field_->setFocus();
  column.addSpacing(betweenParts);
  column.addWidget(field_);
}

void DialogBox::addButtons(QVBoxLayout& column, const DialogControls& controls) {
  auto* buttons = new QDialogButtonBox;
  auto* accept = buttons->addButton(buttonText(controls.accept), QDialogButtonBox::AcceptRole);
  accept->setDefault(true);
  if (controls.canCancel) buttons->addButton("Cancel", QDialogButtonBox::RejectRole);
  QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  column.addSpacing(betweenParts);
  column.addWidget(buttons);
}

}  // namespace tilwin::qt
