#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/WindowInfo.h"
#include "core/layouts/Layout.h"

namespace tilwin {

/// Where one window is to go.
struct Placement {
  std::int64_t windowID = 0;
  Rect frame{};  ///< in the global space, points
  std::uint32_t displayID = 0;

  bool operator==(const Placement&) const = default;
};

struct LayoutPlan {
  std::vector<Placement> placements{};  ///< in slot order
  std::vector<LayoutSlot> unmatched{};  ///< the slots without a window, in slot order

  bool operator==(const LayoutPlan&) const = default;
};

/// Turns layouts into moves and open windows into layouts. Nothing here fails or has effects.
struct LayoutPlanner {
  /// Each slot takes the frontmost window that fits it and that no earlier slot took. `outer` and `gap` are
  /// the margin and the space between tiles, in points.
  [[nodiscard]] static LayoutPlan plan(const Layout& layout, const std::vector<WindowInfo>& windows,
                                       const std::vector<DisplayInfo>& displays, double outer, double gap,
                                       bool includeMinimized);

  /// The windows as they stand, front to back, as fractions of the display that shows most of each.
  [[nodiscard]] static Layout snapshot(const std::vector<WindowInfo>& windows,
                                       const std::vector<DisplayInfo>& displays, std::string name,
                                       bool automatic, Date now);
};

}  // namespace tilwin
