#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "core/geometry/Rect.h"
#include "core/snap/actions/GridRegion.h"

namespace tilwin {

/// What one shortcut, menu entry or drag can do to a window.
enum class SnapAction : std::uint8_t {
  leftHalf,
  rightHalf,
  topHalf,
  bottomHalf,
  topLeft,
  topRight,
  bottomLeft,
  bottomRight,
  leftThird,
  centerThird,
  rightThird,
  leftTwoThirds,
  rightTwoThirds,
  topLeftSixth,
  topCenterSixth,
  topRightSixth,
  bottomLeftSixth,
  bottomCenterSixth,
  bottomRightSixth,
  firstFourth,
  secondFourth,
  thirdFourth,
  lastFourth,
  leftThreeFourths,
  rightThreeFourths,
  maximize,
  almostMaximize,
  center,
  centerLarge,
  maximizeHeight,
  maximizeWidth,
  larger,
  smaller,
  restore,
  nextDisplay,
  previousDisplay,
};

/// The table of actions: stored name, title, and the frame that each gives a window.
struct SnapActions {
  static constexpr double resizeStep = 32;    ///< points by which `larger` and `smaller` move each edge
  static constexpr double minimumSize = 240;  ///< points; `smaller` does not shrink a side below this

  /// Every action, in declaration order.
  [[nodiscard]] static std::span<const SnapAction> all();
  /// The name stored in files: that of the enumerator.
  [[nodiscard]] static std::string_view rawValue(SnapAction action);
  /// Nothing for an unknown name.
  [[nodiscard]] static std::optional<SnapAction> fromRawValue(std::string_view rawValue);
  /// The name shown to the user.
  [[nodiscard]] static std::string_view title(SnapAction action);
  /// The grid cells the action fills; nothing for actions that are not defined by a grid.
  [[nodiscard]] static std::optional<GridRegion> region(SnapAction action);

  /// The new frame of a window whose frame is `current`, in whole points. `in` is the visible frame of its
  /// display, `outer` the margin to that frame's edges and `gap` the space between tiles, in points. Nothing
  /// for `restore`, `nextDisplay` and `previousDisplay`, which depend on more than this.
  [[nodiscard]] static std::optional<Rect> frame(SnapAction action, const Rect& current, const Rect& in,
                                                 double outer, double gap);
};

}  // namespace tilwin
