#pragma once

#include "core/geometry/Rect.h"

namespace tilwin {

/// A rectangle as fractions of an area, such as a display's visible frame. Any numbers may be stored; they
/// are brought into range only when turned back into points.
struct NormalizedRect {
  /// A window or area takes at least this share of a display in each direction.
  static constexpr double smallestShare = 0.05;

  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  bool operator==(const NormalizedRect&) const = default;

  /// The fractions of `area` that `rect` stands at. An area side below 1 point counts as 1.
  [[nodiscard]] static NormalizedRect of(const Rect& rect, const Rect& in);

  /// Whole points inside `in`: at least 5% of it in each direction, never starting in its last 5%, never
  /// past its right or bottom edge.
  [[nodiscard]] Rect rect(const Rect& in) const;
};

}  // namespace tilwin
