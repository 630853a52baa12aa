#include "core/snap/actions/GridRegion.h"

#include "core/geometry/Rect.h"
#include "core/support/Hash.h"

namespace tilwin {
namespace {

/// One axis of the grid. The counts are doubles because a region decoded from a file may hold any 64-bit
/// integers, and arithmetic on those could overflow.
Span cells(const Span& inner, double gap, double count, double first, double covered) {
  const double cell = (inner.length - (count - 1) * gap) / count;
  return {inner.start + (cell + gap) * first, cell * covered + (covered - 1) * gap};
}

}  // namespace

Rect GridRegion::frame(const Rect& in, double outer, double gap) const {
  const auto number = [](std::int64_t value) { return static_cast<double>(value); };
  const Rect inner = in.inset(outer);
  const Span across = cells({inner.x, inner.width}, gap, number(columns), number(col), number(colSpan));
  const Span down = cells({inner.y, inner.height}, gap, number(rows), number(row), number(rowSpan));
  return Rect{across.start, down.start, across.length, down.length}.rounded();
}

}  // namespace tilwin

std::size_t std::hash<tilwin::GridRegion>::operator()(const tilwin::GridRegion& region) const noexcept {
  return tilwin::hashOf(region.columns, region.rows, region.col, region.row, region.colSpan, region.rowSpan);
}
