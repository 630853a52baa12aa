#pragma once

#include <vector>

#include "core/geometry/DisplayInfo.h"

namespace tilwin {

/// The one ordering of displays wherever a display has an index: by the frame's x, then by its y.
struct DisplayOrder {
  [[nodiscard]] static bool precedes(const DisplayInfo& first, const DisplayInfo& second);
  /// Displays at the same place keep the order they came in.
  [[nodiscard]] static std::vector<DisplayInfo> sorted(std::vector<DisplayInfo> displays);
};

}  // namespace tilwin
