#pragma once

#include <array>
#include <span>
#include <string_view>

#include "bench/drag/Chance.h"

namespace tilwin {

/// One way in which somebody lets windows go near an edge.
struct DragHabit {
  double share = 0;        ///< of this user's drags
  bool wantsSnap = false;  ///< whether the window is meant to snap
  Spread distance;         ///< points from the edge where the hand aims; less than 0 is beyond it
  Spread pace;             ///< points per second at the fastest moment
  double inMotion = 0;     ///< share let go before the hand has come to rest
  Spread rest;             ///< seconds the hand rests before it lets go, where it does
  double atNeighbour = 0;  ///< share at an edge across which another display lies

  bool operator==(const DragHabit&) const = default;
};

/// Somebody who drags windows, as numbers. These are assumptions about people, not measurements.
struct SimulatedUser {
  std::string_view name;
  std::array<DragHabit, 3> habits;
  double undoes = 0;  ///< share of the unwanted snaps that are undone, rather than lived with
  double fixes = 0;   ///< share of the missed snaps that are then made by hand, rather than given up
  double whims = 0;   ///< share of drags after which the user wants the opposite of what the drag was for
  double slips = 0;   ///< share of drags at whose end the hand slips
  double slip = 0;    ///< points of such a slip, as the spread about 0

  bool operator==(const SimulatedUser&) const = default;

  /// Whom the rule suits; who snaps from farther away; who parks windows at edges.
  [[nodiscard]] static std::span<const SimulatedUser> all();
};

}  // namespace tilwin
