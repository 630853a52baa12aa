#include "platform/qt/settings/Symbols.h"

#include <QPen>
#include <QPolygonF>
#include <variant>

#include "platform/drawing/FormSymbols.h"

namespace tilwin::qt {
namespace {

/// On the symbol's board.
struct Drawer {
  QPainter& painter;

  void operator()(const drawing::SymbolLine& line) const {
    QPolygonF points;
    for (const auto& point : line.points) points.append({point.x, point.y});
    painter.drawPolyline(points);
  }

  void operator()(const drawing::SymbolBox& box) const {
    painter.setBrush(box.isFilled ? QBrush(painter.pen().color()) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(QRectF(box.frame.x, box.frame.y, box.frame.width, box.frame.height),
                            box.cornerRadius, box.cornerRadius);
  }
};

}  // namespace

void drawSymbol(QPainter& painter, FormSymbol symbol, const QRectF& area, const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(area.topLeft());
  painter.scale(area.width() / drawing::symbolBoard, area.height() / drawing::symbolBoard);
  painter.setPen(QPen(colour, drawing::symbolLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  for (const auto& shape : drawing::symbolShapes(symbol)) std::visit(Drawer{painter}, shape);
  painter.restore();
}

}  // namespace tilwin::qt
