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
  bool left_ = false;
  bool right_ = false;
  bool top_ = false;
  bool bottom_ = false;
  bool inside_ = false;
};

}  // namespace tilwin
