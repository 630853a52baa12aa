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

  /// From the CARDINAL[4] left, right, top, bottom of _NET_FRAME_EXTENTS and _GTK_FRAME_EXTENTS; none when
  /// the property is missing or short.
  [[nodiscard]] static Margins fromProperty(const std::vector<std::uint32_t>& numbers);
};

/// How a window's visible frame and its client area relate: the window manager's decoration lies outside the
/// client area, the shadow that a client draws for itself lies inside it and is not part of the frame.
struct FrameShape {
  Margins decoration;
  Margins shadow;

  bool operator==(const FrameShape&) const = default;

  [[nodiscard]] Rect frameOfClient(const Rect& client) const;
  /// What to ask the window manager for with north-west gravity, where the position is that of the outer
  /// corner of its decoration and the size is the client's: at least one point each way.
  [[nodiscard]] Rect requestForFrame(const Rect& frame) const;
};

}  // namespace tilwin::x11
