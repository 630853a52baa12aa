#pragma once

#include <cstdint>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin::x11 {

/// Four widths around a window, in points.
struct Margins {
  double left = 0;
  double right = 0;
  double top = 0;
  double bottom = 0;

  bool operator==(const Margins&) const = default;

  /// From the numbers left, right, top, bottom of _NET_FRAME_EXTENTS (EWMH) or _GTK_FRAME_EXTENTS (GTK). All
  /// zero if there are fewer than four.
  [[nodiscard]] static Margins fromProperty(const std::vector<std::uint32_t>& numbers);
};

/// Converts between a window's client area and its frame, the part that the user sees. The window manager's
/// decoration is outside the client area and belongs to the frame. A shadow drawn by the client is inside the
/// client area and does not.
struct FrameShape {
  Margins decoration;
  Margins shadow;
  /// The width of the border of the client's own window, which `decoration` includes where it was measured.
  double clientBorder = 0;

  bool operator==(const FrameShape&) const = default;

  [[nodiscard]] Rect frameOfClient(const Rect& client) const;
  /// The frame's size with a client area of this size, in points.
  [[nodiscard]] Size frameSizeOf(Size client) const;
  /// The rectangle to request from the window manager with north-west gravity: the position of the outer
  /// corner of its decoration and the size of the client area, at least one point in each direction.
  [[nodiscard]] Rect requestForFrame(const Rect& frame) const;
};

}  // namespace tilwin::x11
