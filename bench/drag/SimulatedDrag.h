#pragma once

#include "bench/drag/SimulatedUser.h"
#include "core/drag/DragTrace.h"
#include "core/drag/NeighbourEdges.h"
#include "core/geometry/Rect.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// One drag of a window to somewhere near an edge, as the pointer's path. The display has another one to its
/// right.
struct SimulatedDrag {
  static constexpr Rect display{0, 0, 1440, 900};
  static constexpr NeighbourEdges neighbours{.right = true};

  DragTrace trace{};                       ///< as the program samples it; the last sample is the release
  SnapAction zone = SnapAction::leftHalf;  ///< what the edge stands for
  double lastChecked = 0;                  ///< points from that edge at the last sample before the release
  bool wantsSnap = false;

  [[nodiscard]] static SimulatedDrag make(const SimulatedUser& user, Chance& chance);
};

}  // namespace tilwin
