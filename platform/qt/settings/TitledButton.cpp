#include "platform/qt/settings/TitledButton.h"

#include <QKeyEvent>
#include <QPainter>

namespace tilwin::qt {

bool pressByReturn(QAbstractButton& button, const QKeyEvent& event) {
  if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter) return false;
  if (!event.isAutoRepeat()) button.click();
  return true;
}

TitledButton::TitledButton(const std::string& id, const Report& report, QWidget* parent)
    : QPushButton(parent) {
  setObjectName(QString::fromStdString(id));
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(this, &QPushButton::clicked, this,
          [this, &report] { report(form::ButtonPressed{objectName().toStdString()}); });
}

void TitledButton::setTitle(const QString& title) {
  if (title == title_) return;
  title_ = title;
  updateGeometry();
  update();
}

int TitledButton::titleWidth() const { return fontMetrics().horizontalAdvance(title_) + 2; }

void TitledButton::drawTitle(QPainter& painter, const QRectF& room) const {
  const QString shown = fontMetrics().elidedText(title_, Qt::ElideRight, static_cast<int>(room.width()) + 1);
  painter.drawText(room, Qt::AlignCenter, shown);
}

void TitledButton::keyPressEvent(QKeyEvent* event) {
  if (!pressByReturn(*this, *event)) QPushButton::keyPressEvent(event);
}

}  // namespace tilwin::qt
