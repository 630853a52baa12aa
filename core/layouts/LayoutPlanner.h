#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/WindowInfo.h"
#include "core/layouts/Layout.h"

namespace tilwin {

/// The new frame of one window.
struct Placement {
  std::int64_t windowID = 0;
  Rect frame{};  ///< global desktop space, points
  std::uint32_t displayID = 0;

  bool operator==(const Placement&) const = default;
};

/// What applying a layout would do.
struct LayoutPlan {
  std::vector<Placement> placements{};  ///< in slot order
  std::vector<LayoutSlot> unmatched{};  ///< slots for which no window was found, in slot order

  bool operator==(const LayoutPlan&) const = default;
};

/// Computes the moves for a layout, and a layout from open windows. Pure functions that never fail.
struct LayoutPlanner {
  /// Each slot gets the frontmost matching window that no earlier slot got. `outer` is the margin and `gap`
  /// the space between tiles, in points. Without displays every slot is unmatched.
  [[nodiscard]] static LayoutPlan plan(const Layout& layout, const std::vector<WindowInfo>& windows,
                                       const std::vector<DisplayInfo>& displays, double outer, double gap,
                                       bool includeMinimized);

  /// A layout of the current windows, front to back, in fractions of the display that shows most of each.
  /// Skips minimised windows and those without a bundle identifier.
  [[nodiscard]] static Layout snapshot(const std::vector<WindowInfo>& windows,
                                       const std::vector<DisplayInfo>& displays, std::string name,
                                       bool automatic, Date now);
};

}  // namespace tilwin
