#pragma once

#include <vector>

#include "core/geometry/DisplayInfo.h"

namespace tilwin {

/// On which edges of a display another display lies directly across, so that the pointer can go on there.
struct NeighbourEdges {
  bool left = false;
  bool right = false;
  bool top = false;
  bool bottom = false;

  bool operator==(const NeighbourEdges&) const = default;

  /// The display itself may be among the others: whichever has its id is passed over.
  [[nodiscard]] static NeighbourEdges around(const DisplayInfo& display,
                                             const std::vector<DisplayInfo>& among);
};

}  // namespace tilwin
