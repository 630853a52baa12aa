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

/// A distribution around a mean: two thirds of the values lie within `spread` on either side.
struct Spread {
  double mean = 0;
  double spread = 0;

  bool operator==(const Spread&) const = default;
};

/// Reproducible random numbers. The generator is the standard library's, the distributions are our own, since
/// the standard ones differ between implementations.
class Chance {
public:
  /// Each pair of numbers gives a different sequence.
  Chance(std::uint32_t who, std::uint32_t seed);

  /// Uniform in [0, 1).
  double share();
  double between(double least, double most) { return least + (most - least) * share(); }
  bool happens(double probability) { return share() < probability; }
  /// Approximately normal, never more than 3.5 spreads from the mean.
  double about(const Spread& values);

private:
  std::mt19937_64 generator_;
};

/// One way in which a user releases windows near an edge.
struct DragHabit {
  double share = 0;        ///< of this user's drags
  bool wantsSnap = false;  ///< whether the window is meant to snap
  Spread distance;         ///< target distance from the edge in points; negative is beyond it
  Spread pace;             ///< points per second at the fastest moment
  double inMotion = 0;     ///< share released before the pointer has come to rest
  Spread rest;             ///< seconds of rest before the release, if any
  double atNeighbour = 0;  ///< share at an edge with another display beyond it

  bool operator==(const DragHabit&) const = default;
};

/// The parameters of a user who drags windows. These are assumptions about people, not measurements.
struct SimulatedUser {
  std::string_view name;
  std::array<DragHabit, 3> habits;
  double undoes = 0;  ///< share of the unwanted snaps that are undone
  double fixes = 0;   ///< share of the missed snaps that are then made by hand
  double whims = 0;   ///< share of drags after which the user wants the opposite
  double slips = 0;   ///< share of drags that end with a slip of the hand
  double slip = 0;    ///< size of a slip in points, as the spread about 0

  bool operator==(const SimulatedUser&) const = default;

  /// In this order: a user whom the rule suits, one who snaps from farther away, one who parks windows at
  /// edges, and one with the same wishes as the first who always lets go while still moving.
  [[nodiscard]] static std::span<const SimulatedUser> all();
};

/// Which pointer position decides whether a drag snaps.
enum class SnapsBy : std::uint8_t {
  release,      ///< where the button went up: the release is held back until that can be examined
  lastChecked,  ///< the last position examined before that, as if releases were not held back
};

/// One drag of a window to a point near an edge, as the pointer's path. Another display is to the right.
struct SimulatedDrag {
  static constexpr Rect display{0, 0, 1440, 900};
  static constexpr NeighbourEdges neighbours{.right = true};

  DragTrace trace{};                       ///< as the program samples it; the last sample is the release
  SnapAction zone = SnapAction::leftHalf;  ///< the action of that edge
  double decisive = 0;                     ///< points from that edge to the position that decides
  bool wantsSnap = false;

  [[nodiscard]] static SimulatedDrag make(const SimulatedUser& user, Chance& chance, SnapsBy by);
};

}  // namespace tilwin
