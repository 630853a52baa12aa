#include "platform/drawing/FormSymbols.h"

#include <array>

namespace tilwin::drawing {
namespace {

using Shapes = std::vector<SymbolShape>;

SymbolBox box(const Rect& frame, double cornerRadius) { return {frame, cornerRadius}; }
SymbolBox filled(const Rect& frame, double cornerRadius) { return {frame, cornerRadius, true}; }
SymbolBox dot(double x, double y, double radius) {
  return filled({x - radius, y - radius, 2 * radius, 2 * radius}, radius);
}
/// As round as the end of a line.
SymbolLine point(double x, double y) { return {{{x, y}, {x, y}}}; }

Shapes none() { return {}; }

Shapes trash() {
  return {SymbolLine{{{2.5, 4.5}, {13.5, 4.5}}}, SymbolLine{{{6, 4.5}, {6, 2.5}, {10, 2.5}, {10, 4.5}}},
          SymbolLine{{{4, 4.5}, {4.7, 13.5}, {11.3, 13.5}, {12, 4.5}}}, SymbolLine{{{6.7, 7}, {6.9, 11}}},
          SymbolLine{{{9.3, 7}, {9.1, 11}}}};
}

Shapes spacing() {
  return {box({1.5, 3, 4.5, 10}, 1.2), box({10, 3, 4.5, 10}, 1.2), SymbolLine{{{8, 5}, {8, 11}}}};
}

Shapes behavior() {
  return {box({1.5, 2.5, 13, 4.6}, 2.3), box({1.5, 9.1, 13, 4.6}, 2.3), dot(12.1, 4.8, 1.1),
          dot(3.9, 11.4, 1.1)};
}

Shapes keyboard() {
  return {box({1, 3.5, 14, 9}, 1.8), point(4, 6.4), point(6.7, 6.4),  point(9.4, 6.4),
          point(12.1, 6.4),          point(4, 9.7), point(12.1, 9.7), SymbolLine{{{6.2, 9.7}, {9.8, 9.7}}}};
}

Shapes area() { return {box({1, 2.5, 14, 11}, 1.8), filled({5.5, 5.5, 6.5, 5}, 0.8)}; }

Shapes statistics() {
  return {SymbolLine{{{1.5, 14}, {14.5, 14}}}, box({2.5, 8.5, 2.6, 3.6}, 0.6), box({6.7, 2.5, 2.6, 9.6}, 0.6),
          box({10.9, 5.7, 2.6, 6.4}, 0.6)};
}

/// By FormSymbol.
constexpr std::array shapes{&none, &trash, &spacing, &behavior, &keyboard, &area, &statistics};

}  // namespace

std::vector<SymbolShape> symbolShapes(FormSymbol symbol) {
  return shapes.at(static_cast<std::size_t>(symbol))();
}

}  // namespace tilwin::drawing
