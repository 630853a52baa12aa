#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <span>
#include <string_view>

#include "core/drag/DragTrace.h"
#include "core/drag/NeighbourEdges.h"
#include "core/geometry/Rect.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// Where values of one kind lie: about a mean, two thirds of them within the spread on either side.
struct Spread {
  double mean = 0;
  double spread = 0;

  bool operator==(const Spread&) const = default;
};

/// Chance that can be repeated. The generator is the standard's, the shapes are our own: those of the
/// standard library differ from one implementation to the next.
class Chance {
public:
  /// Each pair of numbers gives a sequence of its own.
  Chance(std::uint32_t who, std::uint32_t seed);

  /// From 0, never 1, all values alike.
  double share();
  double between(double least, double most) { return least + (most - least) * share(); }
  bool happens(double probability) { return share() < probability; }
  /// Bell-shaped, and never farther than three and a half spreads from the mean.
  double about(const Spread& values);

private:
  std::mt19937_64 generator_;
};

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

/// One drag of a window to somewhere near an edge, as the pointer's path. The display has another one to its
/// right.
struct SimulatedDrag {
  static constexpr Rect display{0, 0, 1440, 900};
  static constexpr NeighbourEdges neighbours{.right = true};

  DragTrace trace{};                       ///< as the program samples it; the last sample is the release
  SnapAction zone = SnapAction::leftHalf;  ///< what the edge stands for
  double lastChecked = 0;                  ///< points from that edge at the last sample before the release
  bool wantsSnap = false;

  [[nodiscard]] static SimulatedDrag make(const SimulatedUser& user, Chance& chance);
};

}  // namespace tilwin
