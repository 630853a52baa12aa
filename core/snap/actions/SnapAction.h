#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "core/geometry/Rect.h"
#include "core/snap/actions/GridRegion.h"

namespace tilwin {

/// What can be done to a window by one shortcut, menu entry or drag.
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

/// What is known of each action.
struct SnapActions {
  static constexpr double resizeStep = 32;    ///< points that `larger` and `smaller` move each edge
  static constexpr double minimumSize = 240;  ///< points below which `smaller` does not shrink

  /// Every action, in declaration order.
  [[nodiscard]] static std::span<const SnapAction> all();
  /// The name under which the action is stored: that of its enumeration case.
  [[nodiscard]] static std::string_view rawValue(SnapAction action);
  [[nodiscard]] static std::optional<SnapAction> fromRawValue(std::string_view rawValue);
  /// The name shown to people.
  [[nodiscard]] static std::string_view title(SnapAction action);
  /// The cells the action fills; nothing for an action that is not a span of a grid.
  [[nodiscard]] static std::optional<GridRegion> region(SnapAction action);

  /// Where a window now at `current` goes, in whole points. `in` is the visible frame of its display,
  /// `outer` the margin kept to that frame's edges and `gap` the space between neighbouring tiles, in points.
  /// Nothing for `restore`, `nextDisplay` and `previousDisplay`, which need more than one frame to decide.
  [[nodiscard]] static std::optional<Rect> frame(SnapAction action, const Rect& current, const Rect& in,
                                                 double outer, double gap);
};

}  // namespace tilwin
