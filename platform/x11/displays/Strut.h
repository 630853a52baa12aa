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

/// The strut of a panel that is seen to take up `area`, in points. Window managers that keep panels to
/// themselves do not need their numbers, and many of those are off: they leave out where along the edge the
/// panel is, or count from the edge of its monitor instead of the desktop's. So the panel's place along the
/// edge counts, and its depth if the told room is elsewhere. A panel that is elsewhere itself, at no edge of
/// one of the monitors, keeps the strut as told.
[[nodiscard]] Strut strutSeenAt(const Rect& area, const Strut& told, std::span<const Rect> monitors);

/// The part of the monitor outside all struts. A strut that would leave nothing of the monitor belongs to a
/// panel on another monitor and is ignored.
[[nodiscard]] Rect visibleFrame(const Rect& monitor, std::span<const Strut> struts);

}  // namespace tilwin::x11
