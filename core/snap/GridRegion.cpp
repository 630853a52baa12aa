#include "core/snap/GridRegion.h"

#include <algorithm>

#include "core/geometry/Span.h"
#include "core/support/Hash.h"

namespace tilwin {
namespace {

/// One axis of the grid. The counts come as floats because a decoded region may hold any whole number, and
/// arithmetic on those must not overflow.
Span cells(double start, double side, double outer, double gap, double count, double first, double covered) {
  const double inner = std::max(side - 2 * outer, 1.0);
  const double cell = (inner - (count - 1) * gap) / count;
  return {start + outer + (cell + gap) * first, cell * covered + (covered - 1) * gap};
}

}  // namespace

Rect GridRegion::frame(const Rect& in, double outer, double gap) const {
  const auto number = [](std::int64_t value) { return static_cast<double>(value); };
  const Span across = cells(in.x, in.width, outer, gap, number(columns), number(col), number(colSpan));
  const Span down = cells(in.y, in.height, outer, gap, number(rows), number(row), number(rowSpan));
  return Rect{across.start, down.start, across.length, down.length}.rounded();
}

}  // namespace tilwin

std::size_t std::hash<tilwin::GridRegion>::operator()(const tilwin::GridRegion& region) const noexcept {
  return tilwin::hashOf(region.columns, region.rows, region.col, region.row, region.colSpan, region.rowSpan);
}
