#include "platform/qt/settings/ThinScrollBar.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/qt/settings/Theme.h"

namespace tilwin::qt {
namespace {

constexpr int barWidth = 12;
constexpr double shortestHandle = 32;
constexpr double handleInset = 3;

}  // namespace

ThinScrollBar::ThinScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
  setAttribute(Qt::WA_Hover);
  setAttribute(Qt::WA_OpaquePaintEvent, false);
}

QSize ThinScrollBar::sizeHint() const { return {barWidth, 2 * barWidth}; }

QRectF ThinScrollBar::handle() const {
  const double whole = maximum() - minimum() + pageStep();
  const double length =
      std::clamp(height() * pageStep() / std::max(whole, 1.0), shortestHandle, 1.0 * height());
  const double range = std::max(maximum() - minimum(), 1);
  const double top = (height() - length) * (value() - minimum()) / range;
  return {0, top, static_cast<double>(width()), length};
}

double ThinScrollBar::travel() const { return std::max(height() - handle().height(), 1.0); }

void ThinScrollBar::paintEvent(QPaintEvent*) {
  if (maximum() <= minimum()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme theme = Theme::of(palette());
  painter.setPen(Qt::NoPen);
  painter.setBrush(mixed(theme.text, theme.page, underMouse() || isSliderDown() ? 0.5 : 0.3));
  const QRectF body = handle().adjusted(handleInset, handleInset, -handleInset, -handleInset);
  painter.drawRoundedRect(body, body.width() / 2, body.width() / 2);
}

void ThinScrollBar::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  const double y = event->position().y();
  if (!handle().contains(handle().center().x(), y)) {
    return triggerAction(y < handle().top() ? SliderPageStepSub : SliderPageStepAdd);
  }
  grip_ = y - handle().top();
  setSliderDown(true);
}

void ThinScrollBar::mouseMoveEvent(QMouseEvent* event) {
  if (!isSliderDown()) return;
  const double share = (event->position().y() - grip_) / travel();
  setValue(minimum() + static_cast<int>(std::lround(share * (maximum() - minimum()))));
}

void ThinScrollBar::mouseReleaseEvent(QMouseEvent*) {
  setSliderDown(false);
  update();
}

}  // namespace tilwin::qt
