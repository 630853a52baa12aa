#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin::x11 {

/// Room that a panel keeps for itself along one edge of the whole desktop, as a rectangle in points.
/// Source: EWMH, _NET_WM_STRUT_PARTIAL and _NET_WM_STRUT.
struct Strut {
  enum class Edge { left, right, top, bottom };

  Edge edge = Edge::left;
  Rect room;

  bool operator==(const Strut&) const = default;
};

/// The struts of one window: `partial` is its twelve numbers and wins; `whole` is the older property's four.
/// `desktop` is the whole X screen. A property with too few numbers counts as missing.
[[nodiscard]] std::vector<Strut> strutsOf(const std::vector<std::uint32_t>& partial,
                                          const std::vector<std::uint32_t>& whole, const Rect& desktop);

/// The monitor less the struts that touch it. A strut whose room would leave nothing of the monitor belongs
/// to a panel on another one beyond it, and is passed over.
[[nodiscard]] Rect visibleFrame(const Rect& monitor, std::span<const Strut> struts);

}  // namespace tilwin::x11
