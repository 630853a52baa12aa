#include "bench/drag/SimulatedUser.h"

#include <array>
#include <numbers>

namespace tilwin {
namespace {

// A hand that aims beyond an edge is stopped by it. Of what is parked only some comes within 24 points of an
// edge; the rest is in no log.
constexpr DragHabit ordinarySnap{.share = 0.55,
                                 .wantsSnap = true,
                                 .distance = {0, 3},
                                 .pace = {1100, 350},
                                 .inMotion = 0.25,
                                 .rest = {0.25, 0.15},
                                 .atNeighbour = 0.15};
constexpr DragHabit ordinaryPark{.share = 0.35,
                                 .wantsSnap = false,
                                 .distance = {16, 3.5},
                                 .pace = {700, 250},
                                 .inMotion = 0.2,
                                 .rest = {0.3, 0.2},
                                 .atNeighbour = 0.15};
constexpr DragHabit farPark{.share = 0.1,
                            .wantsSnap = false,
                            .distance = {22, 2},
                            .pace = {700, 250},
                            .inMotion = 0.2,
                            .rest = {0.3, 0.2},
                            .atNeighbour = 0.15};

constexpr DragHabit shortSnap{.share = 0.5,
                              .wantsSnap = true,
                              .distance = {14, 2.5},
                              .pace = {800, 250},
                              .inMotion = 0.15,
                              .rest = {0.35, 0.2},
                              .atNeighbour = 0.15};
constexpr DragHabit fullSnap{.share = 0.2,
                             .wantsSnap = true,
                             .distance = {0, 3},
                             .pace = {1100, 350},
                             .inMotion = 0.25,
                             .rest = {0.2, 0.15},
                             .atNeighbour = 0.15};
constexpr DragHabit distantPark{.share = 0.3,
                                .wantsSnap = false,
                                .distance = {21, 4},
                                .pace = {700, 250},
                                .inMotion = 0.2,
                                .rest = {0.3, 0.2},
                                .atNeighbour = 0.15};

constexpr DragHabit slowPark{.share = 0.35,
                             .wantsSnap = false,
                             .distance = {3, 2},
                             .pace = {250, 80},
                             .inMotion = 0.05,
                             .rest = {0.9, 0.35},
                             .atNeighbour = 0.7};
constexpr DragHabit fastSnap{.share = 0.45,
                             .wantsSnap = true,
                             .distance = {0, 3},
                             .pace = {1300, 400},
                             .inMotion = 0.6,
                             .rest = {0.05, 0.05},
                             .atNeighbour = 0.3};
constexpr DragHabit parkAway{.share = 0.2,
                             .wantsSnap = false,
                             .distance = {16, 3.5},
                             .pace = {700, 250},
                             .inMotion = 0.2,
                             .rest = {0.3, 0.2},
                             .atNeighbour = 0.3};

constexpr SimulatedUser user(std::string_view name, const std::array<DragHabit, 3>& habits) {
  return {
      .name = name, .habits = habits, .undoes = 0.8, .fixes = 0.65, .whims = 0.03, .slips = 0.04, .slip = 6};
}

constexpr DragHabit thrown(DragHabit habit) {
  habit.inMotion = 1;
  return habit;
}

constexpr std::array users{
    user("whom the rule suits", {ordinarySnap, ordinaryPark, farPark}),
    user("who snaps from farther away", {shortSnap, fullSnap, distantPark}),
    user("who parks windows at edges", {slowPark, fastSnap, parkAway}),
    user("who throws windows", {thrown(ordinarySnap), thrown(ordinaryPark), thrown(farPark)}),
};

}  // namespace

std::span<const SimulatedUser> SimulatedUser::all() { return users; }

namespace {

std::mt19937_64 generatorFor(std::uint32_t who, std::uint32_t seed) {
  const std::array<std::uint32_t, 2> numbers{who, seed};
  std::seed_seq sequence(numbers.begin(), numbers.end());
  return std::mt19937_64(sequence);
}

}  // namespace

Chance::Chance(std::uint32_t who, std::uint32_t seed) : generator_(generatorFor(who, seed)) {}

double Chance::share() { return static_cast<double>(generator_() >> 11) * 0x1p-53; }

/// The sum of four numbers of 16 bits, which one draw has: close to normal, and free of the mathematical
/// functions whose last bits vary. The sum of four uniform shares has a variance of a third.
double Chance::about(const Spread& values) {
  const std::uint64_t bits = generator_();
  double sum = 0;
  for (int piece = 0; piece < 4; ++piece) sum += static_cast<double>((bits >> (16 * piece)) & 0xFFFFU);
  return values.mean + values.spread * std::numbers::sqrt3 * (sum / 65535 - 2);
}

}  // namespace tilwin
