#pragma once

#include <string>
#include <vector>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// A RandR 1.5 monitor, in root coordinates.
struct Monitor {
  std::string name = {};
  Rect frame = {};
  bool primary = false;
  bool operator==(const Monitor&) const = default;
};

/// The space that a window reserves along the screen's edges: _NET_WM_STRUT_PARTIAL (EWMH), in its order;
/// start and end are inclusive.
struct Strut {
  WindowId window = 0;
  Extents extents = {};
  std::array<int, 8> spans{};
  bool operator==(const Strut&) const = default;
};

/// The monitors in the server's order.
std::vector<Monitor> monitorsOf(XConnection& connection);

/// The part of a monitor that is not covered by a strut, on a screen of that size.
Rect visibleFrame(const Monitor& monitor, const std::vector<Strut>& struts, PixelSize screen);

}  // namespace tilwin::desktop
