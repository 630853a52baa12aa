#include "platform/qt/settings/Symbols.h"

#include <QPainterPath>
#include <QPen>
#include <array>

namespace tilwin::qt {
namespace {

// Symbols are drawn on a board of 16 by 16.

void drawTrash(QPainter& painter) {
  painter.drawLine(QPointF(2.5, 4.5), QPointF(13.5, 4.5));
  painter.drawPolyline(QPolygonF({{6, 4.5}, {6, 2.5}, {10, 2.5}, {10, 4.5}}));
  painter.drawPolyline(QPolygonF({{4, 4.5}, {4.7, 13.5}, {11.3, 13.5}, {12, 4.5}}));
  painter.drawLine(QPointF(6.7, 7), QPointF(6.9, 11));
  painter.drawLine(QPointF(9.3, 7), QPointF(9.1, 11));
}

void drawSpacing(QPainter& painter) {
  painter.drawRoundedRect(QRectF(1.5, 3, 4.5, 10), 1.2, 1.2);
  painter.drawRoundedRect(QRectF(10, 3, 4.5, 10), 1.2, 1.2);
  painter.drawLine(QPointF(8, 5), QPointF(8, 11));
}

void drawBehavior(QPainter& painter) {
  painter.drawRoundedRect(QRectF(1.5, 2.5, 13, 4.6), 2.3, 2.3);
  painter.drawRoundedRect(QRectF(1.5, 9.1, 13, 4.6), 2.3, 2.3);
  painter.setBrush(painter.pen().color());
  painter.drawEllipse(QPointF(12.1, 4.8), 1.1, 1.1);
  painter.drawEllipse(QPointF(3.9, 11.4), 1.1, 1.1);
}

void drawKeyboard(QPainter& painter) {
  painter.drawRoundedRect(QRectF(1, 3.5, 14, 9), 1.8, 1.8);
  for (const double x : {4.0, 6.7, 9.4, 12.1}) painter.drawPoint(QPointF(x, 6.4));
  for (const double x : {4.0, 12.1}) painter.drawPoint(QPointF(x, 9.7));
  painter.drawLine(QPointF(6.2, 9.7), QPointF(9.8, 9.7));
}

void drawArea(QPainter& painter) {
  painter.drawRoundedRect(QRectF(1, 2.5, 14, 11), 1.8, 1.8);
  painter.setBrush(painter.pen().color());
  painter.drawRoundedRect(QRectF(5.5, 5.5, 6.5, 5), 0.8, 0.8);
}

void drawStatistics(QPainter& painter) {
  painter.drawLine(QPointF(1.5, 14), QPointF(14.5, 14));
  painter.drawRoundedRect(QRectF(2.5, 8.5, 2.6, 3.6), 0.6, 0.6);
  painter.drawRoundedRect(QRectF(6.7, 2.5, 2.6, 9.6), 0.6, 0.6);
  painter.drawRoundedRect(QRectF(10.9, 5.7, 2.6, 6.4), 0.6, 0.6);
}

struct SymbolDrawing {
  FormSymbol symbol;
  void (*draw)(QPainter&);
};

constexpr std::array<SymbolDrawing, 6> drawings{{
    {FormSymbol::trash, drawTrash},
    {FormSymbol::spacing, drawSpacing},
    {FormSymbol::behavior, drawBehavior},
    {FormSymbol::keyboard, drawKeyboard},
    {FormSymbol::area, drawArea},
    {FormSymbol::statistics, drawStatistics},
}};

}  // namespace

void drawSymbol(QPainter& painter, FormSymbol symbol, const QRectF& area, const QColor& colour) {
  for (const auto& drawing : drawings) {
    if (drawing.symbol != symbol) continue;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.topLeft());
    painter.scale(area.width() / 16, area.height() / 16);
    painter.setPen(QPen(colour, 1.25, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    drawing.draw(painter);
    painter.restore();
  }
}

}  // namespace tilwin::qt
