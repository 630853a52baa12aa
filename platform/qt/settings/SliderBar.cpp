#include "platform/qt/settings/SliderBar.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "platform/qt/settings/Painting.h"

namespace tilwin::qt {
namespace {

constexpr double knobRadius = 8;
constexpr double grooveHeight = 4;
/// Positions of a continuous slider.
constexpr int fineness = 1000;
constexpr double sliderMargin = knobRadius + metrics::ring;

}  // namespace

SliderBar::SliderBar(const FormSlider& slider, const Report& report, QWidget* parent)
    : QSlider(Qt::Horizontal, parent) {
  setObjectName(QString::fromStdString(slider.id));
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(this, &QSlider::valueChanged, this, [this, &report](int position) {
    report(form::SliderMoved{objectName().toStdString(), valueAt(position)});
  });
}

void SliderBar::display(const FormSlider& slider) {
  const QSignalBlocker silent(this);
  slider_ = slider;
  const double range = slider.maximum - slider.minimum;
  const bool isContinuous = slider.step <= 0;
  setRange(0, isContinuous ? fineness : static_cast<int>(std::lround(range / slider.step)));
  setSingleStep(isContinuous ? fineness / 100 : 1);
  setPageStep(isContinuous ? fineness / 10 : std::max(maximum() / 8, 1));
  setValue(positionOf(slider.value));
  setAccessibleName(QString::fromStdString(slider.label));
  setAccessibleDescription(QString::fromStdString(slider.caption));
}

double SliderBar::valueAt(int position) const {
  if (maximum() == 0) return slider_.minimum;
  if (slider_.step > 0) return slider_.minimum + position * slider_.step;
  return slider_.minimum + (slider_.maximum - slider_.minimum) * position / maximum();
}

int SliderBar::positionOf(double value) const {
  const double range = slider_.maximum - slider_.minimum;
  if (range <= 0 || std::isnan(value)) return 0;
  return static_cast<int>(std::lround(std::clamp((value - slider_.minimum) / range, 0.0, 1.0) * maximum()));
}

double SliderBar::knobX() const {
  const double share = maximum() == 0 ? 0.0 : static_cast<double>(value()) / maximum();
  const double along = (width() - 2 * sliderMargin) * share;
  return isRightToLeft() ? width() - sliderMargin - along : sliderMargin + along;
}

int SliderBar::positionAt(double x) const {
  const double room = std::max(width() - 2 * sliderMargin, 1.0);
  const double along = isRightToLeft() ? width() - sliderMargin - x : x - sliderMargin;
  return static_cast<int>(std::lround(std::clamp(along / room, 0.0, 1.0) * maximum()));
}

QSize SliderBar::sizeHint() const { return {120, metrics::controlHeight}; }

void SliderBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme theme = Theme::of(palette());
  const double middle = height() / 2.0;
  const QRectF groove(metrics::ring, middle - grooveHeight / 2, width() - 2 * metrics::ring, grooveHeight);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.trough);
  painter.drawRoundedRect(groove, 2, 2);
  QRectF filled = groove;
  if (isRightToLeft()) {
    filled.setLeft(knobX());
  } else {
    filled.setRight(knobX());
  }
  painter.setBrush(theme.accent);
  painter.drawRoundedRect(filled, 2, 2);
  const QRectF knob(knobX() - knobRadius, middle - knobRadius, 2 * knobRadius, 2 * knobRadius);
  painter.setPen(QPen(theme.isDark ? mixed(Qt::black, theme.card, 0.5) : theme.outline, 1));
  painter.setBrush(isSliderDown() ? mixed(Qt::black, Qt::white, 0.1) : QColor(Qt::white));
  painter.drawEllipse(knob.adjusted(0.5, 0.5, -0.5, -0.5));
  if (hasFocus()) drawFocusRing(painter, knob.adjusted(1, 1, -1, -1), knobRadius, theme);
}

void SliderBar::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  const double x = event->position().x();
  grip_ = std::abs(x - knobX()) <= knobRadius ? x - knobX() : 0;
  setSliderDown(true);
  setValue(positionAt(x - grip_));
}

void SliderBar::mouseMoveEvent(QMouseEvent* event) {
  if (isSliderDown()) setValue(positionAt(event->position().x() - grip_));
}

void SliderBar::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  setSliderDown(false);
  update();
}

void SliderBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace tilwin::qt
