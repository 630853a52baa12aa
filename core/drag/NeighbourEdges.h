#pragma once

#include <vector>

#include "core/geometry/DisplayInfo.h"

namespace tilwin {

/// At which edges of a display another display adjoins, so that the pointer can cross over.
struct NeighbourEdges {
  bool left = false;
  bool right = false;
  bool top = false;
  bool bottom = false;

  bool operator==(const NeighbourEdges&) const = default;

  /// `among` may include the display itself: the one with the same id is ignored.
  [[nodiscard]] static NeighbourEdges around(const DisplayInfo& display,
                                             const std::vector<DisplayInfo>& among);
};

}  // namespace tilwin
