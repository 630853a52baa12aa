#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin::x11 {

/// What a client says of the sizes its window can have, and from where its requests count. Sizes are those of
/// the client area, in points. Source: ICCCM, 4.1.2.3 (WM_NORMAL_HINTS).
struct SizeLimits {
  Size least{1, 1};
  Size most{Rect::farthest, Rect::farthest};
  Size step{1, 1};
  bool keepsProportions = false;
  std::uint32_t gravity =
      XCB_GRAVITY_NORTH_WEST;  ///< the point of the frame that stays where it was asked to

  bool operator==(const SizeLimits&) const = default;

  /// From the property's numbers. What they leave out, or no window can have, is without limit.
  [[nodiscard]] static SizeLimits fromHints(const std::vector<std::uint32_t>& numbers);
  /// This size, made as large and as small as they allow.
  [[nodiscard]] Size clamped(Size size) const;
  /// Whether a window of one size that was asked to take another may keep the one it has because of its
  /// limits.
  [[nodiscard]] bool mayKeep(Size present, Size asked) const;
};

/// The position to give in a ConfigureWindow request, so that the corner of the frame comes to stand at
/// `frame`: the window manager puts the point of the frame that `gravity` names where that point of a client
/// area of this size and at this position would be. Source: ICCCM, 4.1.5.
[[nodiscard]] Point positionByGravity(std::uint32_t gravity, const Rect& frame, const Rect& client);

}  // namespace tilwin::x11
