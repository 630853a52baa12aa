#pragma once

#include <variant>
#include <vector>

#include "core/geometry/Rect.h"
#include "platform/ports/FormModel.h"

/// The symbols of a form as lines in one colour, whatever draws them: on a board of 16 by 16, from the top
/// left, with round ends and corners.

namespace tilwin::drawing {

inline constexpr double symbolBoard = 16;
inline constexpr double symbolLineWidth = 1.25;

struct SymbolLine {
  std::vector<Point> points{};
};

struct SymbolBox {
  Rect frame{};
  double cornerRadius = 0;
  bool isFilled = false;
};

using SymbolShape = std::variant<SymbolLine, SymbolBox>;

/// Empty for no symbol.
[[nodiscard]] std::vector<SymbolShape> symbolShapes(FormSymbol symbol);

}  // namespace tilwin::drawing
