#include "platform/qt/settings/PushButton.h"

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
    : TitledButton(button.id, report, parent) {}

void PushButton::display(const FormButton& button) {
  const QString title = QString::fromStdString(button.title);
  const QString label = QString::fromStdString(button.label);
  setAccessibleName(label.isEmpty() ? title : label);
  // A symbol alone says what it does when the pointer rests on it.
  setToolTip(title.isEmpty() ? label : QString());
  setEnabled(button.isEnabled);
  setTitle(title);
  if (button.symbol == symbol_) return;
  symbol_ = button.symbol;
  updateGeometry();
  update();
}

QSize PushButton::sizeHint() const {
  const bool hasSymbol = symbol_ != FormSymbol::none;
  if (title().isEmpty()) return {metrics::controlHeight, metrics::controlHeight};
  return {titleWidth() + (hasSymbol ? symbolSize + symbolGap : 0) + 2 * (buttonPadding + metrics::ring),
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
    const double left = title().isEmpty() ? body.center().x() - symbolSize / 2.0 : room.left();
    drawSymbol(painter, symbol_, {left, body.center().y() - symbolSize / 2.0, symbolSize, symbolSize}, ink);
    room.setLeft(left + symbolSize + symbolGap);
  }
  painter.setPen(ink);
  drawTitle(painter, room);
}

}  // namespace tilwin::qt
