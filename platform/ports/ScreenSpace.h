#pragma once

#include "core/geometry/Rect.h"
#include "platform/ports/Screens.h"

/// Between desktop coordinates, whose origin is the top-left corner of the primary display with y downwards,
/// and the screen coordinates of macOS, whose origin is the bottom-left corner of the first screen with y
/// upwards. `height` is that of the frame of the first screen, in points; 0 if there is none.

namespace tilwin {

[[nodiscard]] inline Rect fromScreen(const ScreenRect& rect, double height) {
  return {rect.x, height - (rect.y + rect.height), rect.width, rect.height};
}

[[nodiscard]] inline ScreenRect toScreen(const Rect& rect, double height) {
  return {rect.x, height - (rect.y + rect.height), rect.width, rect.height};
}

/// A point is converted the same way in both directions.
[[nodiscard]] inline Point fromScreen(Point point, double height) { return {point.x, height - point.y}; }

}  // namespace tilwin
