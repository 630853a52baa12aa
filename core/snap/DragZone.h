#pragma once

#include <optional>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/Rect.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// The zones along the edges of a display in which a dragged window snaps when released.
struct DragZone {
  static constexpr double edgeDepth = 6;     ///< depth of the zones in points from the edge
  static constexpr double cornerReach = 60;  ///< length of a corner zone along each of its edges, in points

  /// The action for a window released with the pointer at this point; nothing if the point is in no zone or
  /// not on the display. `edge` and `corner` are normally `edgeDepth` and `cornerReach`; the drag log also
  /// asks with a larger depth. Distances are measured from the display's whole frame, including panels.
  [[nodiscard]] static std::optional<SnapAction> action(Point at, const DisplayInfo& on, double edge,
                                                        double corner);
};

}  // namespace tilwin
