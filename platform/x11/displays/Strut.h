#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin::x11 {

/// Space that a panel reserves along one edge of the whole desktop, as a rectangle in points.
/// Source: EWMH, _NET_WM_STRUT_PARTIAL and _NET_WM_STRUT.
struct Strut {
  enum class Edge { left, right, top, bottom };

  Edge edge = Edge::left;
  Rect room;

  bool operator==(const Strut&) const = default;
};

/// The struts of one window. `partial` has the twelve numbers of _NET_WM_STRUT_PARTIAL and takes precedence;
/// `whole` has the four of the older _NET_WM_STRUT. `desktop` is the whole X screen. A property with too few
/// numbers counts as missing.
[[nodiscard]] std::vector<Strut> strutsOf(const std::vector<std::uint32_t>& partial,
                                          const std::vector<std::uint32_t>& whole, const Rect& desktop);

/// The part of the monitor outside all struts. A strut that would leave nothing of the monitor belongs to a
/// panel on another monitor and is ignored.
[[nodiscard]] Rect visibleFrame(const Rect& monitor, std::span<const Strut> struts);

}  // namespace tilwin::x11
