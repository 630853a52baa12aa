#include "platform/qt/settings/KeyCapButton.h"

#include <QPainter>

#include "platform/qt/settings/Painting.h"

namespace tilwin::qt {
namespace {

constexpr int capPadding = 12;
constexpr int narrowestCap = 120;

void drawCap(QPainter& painter, const QRectF& body, const ControlState& state, bool isRecording,
             const Theme& theme) {
  QColor face = theme.isDark ? theme.control : theme.card;
  if (isRecording) face = mixed(theme.accent, theme.card, theme.isDark ? 0.22 : 0.1);
  if (state.isUnderPointer && !isRecording) face = mixed(theme.text, face, 0.05);
  if (state.isDown) face = mixed(theme.text, face, 0.1);
  const double radius = metrics::controlRadius;
  // The side of the cap shows below its face.
  painter.setPen(Qt::NoPen);
  painter.setBrush(isRecording ? theme.accent : theme.outline);
  painter.drawRoundedRect(body, radius, radius);
  const double border = isRecording ? 2 : 1;
  painter.setBrush(face);
  painter.drawRoundedRect(body.adjusted(border, border, -border, isRecording ? -2 : -2.5), radius - border,
                          radius - border);
}

}  // namespace

KeyCapButton::KeyCapButton(const FormRecorder& recorder, const Report& report, QWidget* parent)
    : TitledButton(recorder.id, report, parent) {}

void KeyCapButton::display(const FormRecorder& recorder, const std::string& remark) {
  setTitle(QString::fromStdString(recorder.title));
  setAccessibleName(QString::fromStdString(recorder.label));
  const std::string pause = remark.empty() ? "" : ". ";
  setAccessibleDescription(QString::fromStdString(recorder.title + pause + remark));
  const bool starts = recorder.isRecording && !isRecording_;
  const bool changes = recorder.isEmpty != isEmpty_ || recorder.isRecording != isRecording_;
  isRecording_ = recorder.isRecording;
  isEmpty_ = recorder.isEmpty;
  if (starts) setFocus(Qt::OtherFocusReason);
  if (changes) update();
}

QSize KeyCapButton::sizeHint() const {
  return {qMax(titleWidth() + 2 * capPadding, narrowestCap) + 2 * metrics::ring, metrics::controlHeight};
}

QSize KeyCapButton::minimumSizeHint() const { return {narrowestCap / 2, metrics::controlHeight}; }

void KeyCapButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme theme = Theme::of(palette());
  const QRectF body = bodyOf(rect());
  drawCap(painter, body, {isEnabled(), underMouse(), isDown(), hasFocus()}, isRecording_, theme);
  if (hasFocus() && !isRecording_) drawFocusRing(painter, body, metrics::controlRadius, theme);
  QColor ink = isEmpty_ ? theme.secondary : theme.text;
  if (isRecording_) ink = theme.isDark ? theme.text : theme.accent;
  painter.setPen(ink);
  const QRectF room = body.adjusted(capPadding, 0, -capPadding, -1);
  drawTitle(painter, room);
}

}  // namespace tilwin::qt
