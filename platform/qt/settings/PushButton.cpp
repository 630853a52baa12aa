#include "platform/qt/settings/PushButton.h"

#include <QKeyEvent>
#include <QPainter>

#include "platform/qt/settings/Painting.h"
#include "platform/qt/settings/Symbols.h"

namespace tilwin::qt {
namespace {

constexpr int buttonPadding = 12;
constexpr int symbolSize = 16;
constexpr int symbolGap = 6;

}  // namespace

PushButton::PushButton(const FormButton& button, const Report& report, QWidget* parent)
    : QPushButton(parent) {
  setObjectName(QString::fromStdString(button.id));
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(this, &QPushButton::clicked, this,
          [this, &report] { report(form::ButtonPressed{objectName().toStdString()}); });
}

void PushButton::display(const FormButton& button) {
  const QString title = QString::fromStdString(button.title);
  const QString label = QString::fromStdString(button.label);
  setAccessibleName(label.isEmpty() ? title : label);
  // A symbol alone says what it does when the pointer rests on it.
  setToolTip(title.isEmpty() ? label : QString());
  setEnabled(button.isEnabled);
  if (title == title_ && button.symbol == symbol_) return;
  title_ = title;
  symbol_ = button.symbol;
  updateGeometry();
  update();
}

QSize PushButton::sizeHint() const {
  const bool hasSymbol = symbol_ != FormSymbol::none;
  if (title_.isEmpty()) return {metrics::controlHeight, metrics::controlHeight};
  const int words = fontMetrics().horizontalAdvance(title_) + 2;
  return {words + (hasSymbol ? symbolSize + symbolGap : 0) + 2 * (buttonPadding + metrics::ring),
          metrics::controlHeight};
}

QSize PushButton::minimumSizeHint() const { return {metrics::controlHeight, metrics::controlHeight}; }

void PushButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme theme = Theme::of(palette());
  const QRectF body = bodyOf(rect());
  drawButtonBody(painter, body, {isEnabled(), underMouse() && isEnabled(), isDown(), hasFocus()}, theme);
  const QColor ink = isEnabled() ? theme.text : mixed(theme.text, theme.card, 0.4);
  QRectF room = body.adjusted(buttonPadding, 0, -buttonPadding, 0);
  if (symbol_ != FormSymbol::none) {
    const double left = title_.isEmpty() ? body.center().x() - symbolSize / 2.0 : room.left();
    drawSymbol(painter, symbol_, {left, body.center().y() - symbolSize / 2.0, symbolSize, symbolSize}, ink);
    room.setLeft(left + symbolSize + symbolGap);
  }
  painter.setPen(ink);
  const QString shown = fontMetrics().elidedText(title_, Qt::ElideRight, static_cast<int>(room.width()) + 1);
  painter.drawText(room, Qt::AlignCenter, shown);
}

void PushButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    return QPushButton::keyPressEvent(event);
  }
  if (!event->isAutoRepeat()) click();
}

}  // namespace tilwin::qt
