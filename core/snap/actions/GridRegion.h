#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>

#include "core/geometry/Rect.h"

namespace tilwin {

/// A block of cells in a grid over an area. Columns count from 0 at the left, rows from 0 at the top.
struct GridRegion {
  std::int64_t columns = 1;
  std::int64_t rows = 1;
  std::int64_t col = 0;
  std::int64_t row = 0;
  std::int64_t colSpan = 1;
  std::int64_t rowSpan = 1;

  constexpr GridRegion() = default;
  /// Clamps every argument, so that the block lies inside a grid of at least one cell.
  constexpr GridRegion(std::int64_t columnCount, std::int64_t rowCount, std::int64_t firstCol,
                       std::int64_t firstRow, std::int64_t colsCovered, std::int64_t rowsCovered)
      : columns(std::max<std::int64_t>(columnCount, 1)),
        rows(std::max<std::int64_t>(rowCount, 1)),
        col(std::clamp<std::int64_t>(firstCol, 0, columns - 1)),
        row(std::clamp<std::int64_t>(firstRow, 0, rows - 1)),
        colSpan(std::clamp<std::int64_t>(colsCovered, 1, columns - col)),
        rowSpan(std::clamp<std::int64_t>(rowsCovered, 1, rows - row)) {}

  bool operator==(const GridRegion&) const = default;

  /// The block's frame in the area `in`, in whole points. `outer` is the margin on each side of the area,
  /// `gap` the space between neighbouring cells, both in points.
  [[nodiscard]] Rect frame(const Rect& in, double outer, double gap) const;
};

}  // namespace tilwin

template <>
struct std::hash<tilwin::GridRegion> {
  std::size_t operator()(const tilwin::GridRegion& region) const noexcept;
};
