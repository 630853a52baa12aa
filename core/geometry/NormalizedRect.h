#pragma once

#include "core/geometry/Rect.h"

namespace tilwin {

/// A rectangle as fractions (0 to 1) of an area, such as a display's visible frame. May hold any numbers;
/// `rect` clamps them.
struct NormalizedRect {
  /// The smallest width and height, as a fraction of the area.
  static constexpr double smallestShare = 0.05;

  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  bool operator==(const NormalizedRect&) const = default;

  /// The position and size of `rect` as fractions of `in`. A side of `in` shorter than 1 point counts as 1.
  [[nodiscard]] static NormalizedRect of(const Rect& rect, const Rect& in);

  /// The rectangle in whole points inside `in`: at least `smallestShare` of it in each direction, never
  /// starting in its last 5%, never past its right or bottom edge.
  [[nodiscard]] Rect rect(const Rect& in) const;
};

}  // namespace tilwin
