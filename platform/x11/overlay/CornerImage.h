#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

#include "platform/ports/Overlay.h"
#include "platform/x11/overlay/AccentColour.h"
#include "platform/x11/overlay/RoundedFrame.h"

namespace tilwin::x11 {

/// The opacity of the border, which is drawn over the fill.
inline constexpr double borderOverFill =
    OverlayStyle::borderOpacity + (1 - OverlayStyle::borderOpacity) * OverlayStyle::fillOpacity;

/// One of the four corners of a rectangle.
struct Corner {
  bool isRight = false;
  bool isBottom = false;

  bool operator==(const Corner&) const = default;
};

/// The antialiased image of one corner of the overlay: a square with sides of `cornerSide` pixels, as rows of
/// 32-bit premultiplied pixels in the server's byte order for images.
[[nodiscard]] std::vector<std::uint8_t> cornerImage(const RoundedFrame& frame, AccentColour accent,
                                                    Corner corner, xcb_image_order_t order);

}  // namespace tilwin::x11
