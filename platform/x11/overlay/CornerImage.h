#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

#include "platform/ports/Overlay.h"
#include "platform/x11/overlay/AccentColour.h"
#include "platform/x11/overlay/RoundedFrame.h"

namespace tilwin::x11 {

/// The border is drawn over the fill.
inline constexpr double borderOverFill =
    OverlayStyle::borderOpacity + (1 - OverlayStyle::borderOpacity) * OverlayStyle::fillOpacity;

/// One of the four corners of a rectangle.
struct Corner {
  bool isRight = false;
  bool isBottom = false;

  bool operator==(const Corner&) const = default;
};

/// The translucent picture of one corner of the overlay, smooth along its curves: a square of the frame's
/// corner side, in rows of 32-bit premultiplied pixels, their bytes in the order the server wants of images.
[[nodiscard]] std::vector<std::uint8_t> cornerImage(const RoundedFrame& frame, AccentColour accent,
                                                    Corner corner, xcb_image_order_t order);

}  // namespace tilwin::x11
