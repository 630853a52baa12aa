#pragma once

#include <cstdint>

namespace tilwin::desktop {

/// A point of the X screen, in pixels from the top-left corner of the root window.
struct PixelPoint {
  int x = 0;
  int y = 0;
  bool operator==(const PixelPoint&) const = default;
};

/// A size in pixels.
struct PixelSize {
  int width = 0;
  int height = 0;
  bool operator==(const PixelSize&) const = default;
};

/// Widths of the four sides of a border, in pixels, in the order that _NET_FRAME_EXTENTS and
/// _GTK_FRAME_EXTENTS use.
struct Extents {
  int left = 0;
  int right = 0;
  int top = 0;
  int bottom = 0;
  bool operator==(const Extents&) const = default;
};

/// An X window id; 0 means no window.
using WindowId = std::uint32_t;

}  // namespace tilwin::desktop
