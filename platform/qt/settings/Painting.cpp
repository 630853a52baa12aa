#include "platform/qt/settings/Painting.h"

#include <QTextLayout>
#include <QTextOption>
#include <QtMath>

namespace tilwin::qt {
namespace {

constexpr double betweenLines = 2;

/// Lays the text out and returns its height.
double layOutLines(QTextLayout& layout, int width) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  double height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height() + betweenLines;
  }
  layout.endLayout();
  return height - betweenLines;
}

}  // namespace

QRectF bodyOf(const QRect& control) {
  return QRectF(control).adjusted(metrics::ring, metrics::ring, -metrics::ring, -metrics::ring);
}

void drawFocusRing(QPainter& painter, const QRectF& body, double radius, const Theme& theme) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(theme.accent, 2));
  painter.drawRoundedRect(body.adjusted(-2, -2, 2, 2), radius + 2, radius + 2);
}

void drawButtonBody(QPainter& painter, const QRectF& body, const ControlState& state, const Theme& theme) {
  QColor fill = theme.control;
  if (state.isUnderPointer) fill = mixed(theme.text, fill, 0.06);
  if (state.isDown) fill = mixed(theme.text, fill, 0.12);
  painter.setPen(QPen(state.isEnabled ? theme.outline : theme.line, 1));
  painter.setBrush(fill);
  painter.drawRoundedRect(body.adjusted(0.5, 0.5, -0.5, -0.5), metrics::controlRadius,
                          metrics::controlRadius);
  if (state.hasFocus) drawFocusRing(painter, body, metrics::controlRadius, theme);
}

int WrappedText::height(const QString& text, const QFont& font, int width) {
  QTextLayout layout(text, font);
  return qMax(qCeil(layOutLines(layout, qMax(width, 1))), 0);
}

void WrappedText::draw(QPainter& painter, const QRect& area, const QString& text) {
  QTextLayout layout(text, painter.font(), painter.device());
  layOutLines(layout, qMax(area.width(), 1));
  layout.draw(&painter, area.topLeft());
}

}  // namespace tilwin::qt
