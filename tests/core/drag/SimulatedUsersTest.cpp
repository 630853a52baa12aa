#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "bench/drag/DragSimulation.h"
#include "bench/drag/SimulatedUser.h"
#include "bench/drag/VerdictTable.h"

namespace tilwin {
namespace {

enum Kind : std::size_t { suited, snapsFromFartherAway, parksAtEdges, suitedThrower };

using Helps = ShadowSummary::ModelWouldHelp;

std::vector<VerdictRow> verdicts(Kind kind, std::span<const std::size_t> drags, int users,
                                 SnapsBy by = SnapsBy::release) {
  return VerdictTable::of(kind, drags, users, by);
}

TEST(SimulatedUsers, AreToldOfAModelThatHelpsInFewerThanOneInAHundredCasesWhereTheRuleSuits) {
  constexpr std::array<std::size_t, 3> drags{50, 200, 1000};
  for (const Kind kind : {suited, suitedThrower}) {
    for (const VerdictRow& row : verdicts(kind, drags, VerdictTable::allSeeds)) {
      EXPECT_LT(row.share<Helps>(), 0.01)
          << SimulatedUser::all()[kind].name << " after " << row.drags << " drags";
    }
  }
}

TEST(SimulatedUsers, WhoThrowWindowsWouldBeToldSoFalselyIfTheirReleasesWereNotHeldBack) {
  constexpr std::array<std::size_t, 1> drags{200};
  EXPECT_GT(verdicts(suitedThrower, drags, 25, SnapsBy::lastChecked).front().share<Helps>(), 0.5);
}

TEST(SimulatedUsers, AreToldThatAModelHelpsWhenTheySnapFromFartherAwayOrParkAtEdges) {
  constexpr std::array<std::size_t, 2> drags{200, 1000};
  for (const Kind kind : {snapsFromFartherAway, parksAtEdges}) {
    const auto rows = verdicts(kind, drags, 25);
    ASSERT_EQ(rows.size(), drags.size());
    EXPECT_GT(rows.front().share<Helps>(), 0.1) << SimulatedUser::all()[kind].name;
    EXPECT_GT(rows.back().share<Helps>(), 0.9) << SimulatedUser::all()[kind].name;
  }
}

TEST(SimulatedUsers, LeaveTheSameLogForTheSameSeed) {
  const auto log = [](std::uint32_t seed, std::size_t records) {
    return DragSimulation::log(suited, seed, records, SnapsBy::release);
  };
  EXPECT_EQ(log(7, 300), log(7, 300));
  EXPECT_NE(log(7, 300), log(8, 300));
  auto start = log(7, 300);
  start.resize(100);
  EXPECT_EQ(start, log(7, 100));
}

TEST(SimulatedUsers, GiveTheSameTableTwice) {
  constexpr std::array<std::size_t, 2> drags{50, 200};
  EXPECT_EQ(verdicts(parksAtEdges, drags, 20), verdicts(parksAtEdges, drags, 20));
}

TEST(SimulatedUsers, HaveHabitsThatMakeUpAllTheirDrags) {
  for (const SimulatedUser& user : SimulatedUser::all()) {
    double all = 0;
    for (const DragHabit& habit : user.habits) all += habit.share;
    EXPECT_NEAR(all, 1, 1e-9) << user.name;
  }
}

}  // namespace
}  // namespace tilwin
