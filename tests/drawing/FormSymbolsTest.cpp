#include "platform/drawing/FormSymbols.h"

#include <gtest/gtest.h>

#include <array>

namespace tilwin::drawing {
namespace {

/// The points between which a shape lies, without the width of its line.
std::vector<Point> outline(const SymbolShape& shape) {
  if (const auto* const line = std::get_if<SymbolLine>(&shape)) return line->points;
  const Rect& frame = std::get<SymbolBox>(shape).frame;
  return {{frame.x, frame.y}, {frame.maxX(), frame.maxY()}};
}

}  // namespace

TEST(FormSymbols, NoSymbolIsNoShape) { EXPECT_TRUE(symbolShapes(FormSymbol::none).empty()); }

TEST(FormSymbols, EverySymbolIsDrawnWithinItsBoard) {
  constexpr double half = symbolLineWidth / 2;
  for (const auto symbol : {FormSymbol::trash, FormSymbol::spacing, FormSymbol::behavior,
                            FormSymbol::keyboard, FormSymbol::area, FormSymbol::statistics}) {
    const auto shapes = symbolShapes(symbol);
    EXPECT_GE(shapes.size(), 2U);
    for (const auto& shape : shapes) {
      for (const Point at : outline(shape)) {
        EXPECT_TRUE(at.x >= half && at.x <= symbolBoard - half && at.y >= half && at.y <= symbolBoard - half);
      }
    }
  }
}

}  // namespace tilwin::drawing
