#pragma once

#include "core/geometry/NormalizedRect.h"
#include "core/geometry/Rect.h"

namespace tilwin {

/// Moves an area, or the edges by which it was grabbed, along with the pointer. All lengths are fractions of
/// the display.
class AreaDrag {
public:
  /// `reach` is how near to an edge a grab takes the edge instead of the whole area. A grab that misses the
  /// area moves nothing.
  AreaDrag(const NormalizedRect& area, Point grabbed, Size reach);

  /// The area with the pointer there; it stays on the display and keeps its smallest size.
  [[nodiscard]] NormalizedRect with(Point pointer) const;

private:
  NormalizedRect start_;
  Point grabbed_;
  int across_ = 0;  ///< the edge that is dragged: -1 left, 1 right, 0 neither
  int down_ = 0;    ///< -1 top, 1 bottom, 0 neither
  bool inside_ = false;
};

}  // namespace tilwin
