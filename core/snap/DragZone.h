#pragma once

#include <optional>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/Rect.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// The bands along a display's edges, and what it means to let go of a window in them.
struct DragZone {
  static constexpr double edgeDepth = 6;     ///< points from an edge within which a drag snaps
  static constexpr double cornerReach = 60;  ///< points that a corner reaches along its two edges

  /// The action that letting go at this point of the display performs; nothing away from its edges and
  /// outside of it. `edge` is the depth of the band and `corner` how far a corner reaches along its two
  /// edges, in points: the two constants above, but where a recording asks what lies farther in. Distances
  /// are taken from the whole display, not from what panels leave of it.
  [[nodiscard]] static std::optional<SnapAction> action(Point at, const DisplayInfo& on, double edge,
                                                        double corner);
};

}  // namespace tilwin
