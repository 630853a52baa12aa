#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

#include "platform/ports/FormModel.h"

namespace tilwin::qt {

/// Draws a symbol of a form in one colour, as lines. Crisp at every scale.
void drawSymbol(QPainter& painter, FormSymbol symbol, const QRectF& area, const QColor& colour);

}  // namespace tilwin::qt
