#include "platform/x11/windows/MoveAttempt.h"

#include <gtest/gtest.h>

namespace tilwin::x11 {

namespace {

using Verdict = MoveAttempt::Verdict;
using Seconds = MoveAttempt::Seconds;

constexpr Rect before{300, 200, 800, 600};
constexpr Rect wanted{0, 0, 960, 1080};
constexpr FrameShape titled{.decoration = {.left = 4, .right = 4, .top = 20, .bottom = 4}, .shadow = {}};
constexpr ManagerHabits obeying{.takesMessage = true, .maximizes = true, .movesByHand = true};
constexpr Seconds later = MoveAttempt::patience;

struct MoveAttempts : testing::Test {
  [[nodiscard]] Verdict seen(const Rect& frame, Seconds time = later, bool mayKeepSize = false) const {
    return attempt.judge({.frame = frame, .shape = titled, .mayKeepSize = mayKeepSize}, habits, time);
  }

  MoveAttempt attempt{.wanted = wanted, .before = before};
  ManagerHabits habits = obeying;
};

}  // namespace

TEST_F(MoveAttempts, IsSettledAsSoonAsTheWindowStandsAsAsked) {
  EXPECT_EQ(seen(wanted, Seconds{0}), Verdict::settled);
}

TEST_F(MoveAttempts, IsOpenForAWhileWhenNothingMoves) {
  EXPECT_EQ(seen(before, Seconds{0.09}), Verdict::open);
  EXPECT_EQ(seen(before, Seconds{0.1}), Verdict::refused);
}

TEST_F(MoveAttempts, IsSettledWhereTheManagerOrTheWindowHasItsOwnMind) {
  EXPECT_EQ(seen({0, 0, 954, 1070}), Verdict::settled);
  EXPECT_EQ(seen({0, 30, 960, 1050}), Verdict::settled);
}

TEST_F(MoveAttempts, IsSettledByAWindowThatHasSeenAnotherSizeAndIsBack) {
  attempt.isResized = true;
  EXPECT_EQ(seen(before), Verdict::settled);
}

TEST_F(MoveAttempts, IsSettledByAWindowInPlaceThatCanHaveNoOtherSize) {
  attempt.before = {0, 0, 700, 500};
  EXPECT_EQ(seen(attempt.before, later, true), Verdict::settled);
  EXPECT_EQ(seen(attempt.before, later, false), Verdict::refused);
}

TEST_F(MoveAttempts, IsRefusedByAWindowElsewhereThatCanHaveNoOtherSize) {
  EXPECT_EQ(seen(before, later, true), Verdict::refused);
}

TEST_F(MoveAttempts, IsSettledByAWindowThatIsKeptOnePointAside) {
  attempt.before = {-1, 0, 960, 1080};
  EXPECT_EQ(seen(attempt.before), Verdict::settled);
  attempt.before = {-2, 0, 960, 1080};
  EXPECT_EQ(seen(attempt.before), Verdict::refused);
}

TEST_F(MoveAttempts, IsMisplacedWhereTheClientAreaStandsInTheFramesPlace) {
  const Rect off{-4, -20, 960, 1080};
  EXPECT_EQ(seen(off), Verdict::misplaced);
  attempt.isCorrected = true;
  EXPECT_EQ(seen(off), Verdict::settled);
}

TEST_F(MoveAttempts, IsMisplacedAlsoWhereAnEarlierProgramLeftTheWindowSo) {
  attempt.before = {-4, -20, 960, 1080};
  EXPECT_EQ(seen(attempt.before), Verdict::misplaced);
}

TEST_F(MoveAttempts, IsMisplacedTheOtherWayOnceTheManagerPutsFramesThere) {
  habits.placesClient = true;
  EXPECT_EQ(seen({4, 20, 960, 1080}), Verdict::misplaced);
  EXPECT_EQ(seen({-4, -20, 960, 1080}), Verdict::settled);
}

TEST_F(MoveAttempts, IsMisplacedByTheFrameWithoutTheBorderOfTheClientsOwnWindow) {
  const FrameShape bordered{
      .decoration = {.left = 3, .right = 3, .top = 23, .bottom = 3}, .shadow = {}, .clientBorder = 1};
  const auto verdictAt = [&](const Rect& frame) {
    return attempt.judge({.frame = frame, .shape = bordered}, habits, later);
  };
  EXPECT_EQ(verdictAt({-2, -22, 960, 1080}), Verdict::misplaced);
  EXPECT_EQ(verdictAt({-3, -23, 960, 1080}), Verdict::settled);
}

TEST_F(MoveAttempts, OfADroppedWindowIsToBeMadeAgainIfItWasMovedElsewhere) {
  attempt.isDropped = true;
  EXPECT_EQ(seen({0, 0, 960, 540}), Verdict::moved);
  EXPECT_EQ(seen(wanted), Verdict::settled);
}

TEST_F(MoveAttempts, ByConfiguringIsRefusedOnlyByAnAnswer) {
  attempt.way = MoveWay::configure;
  EXPECT_EQ(seen(before, Seconds{0.5}), Verdict::open);
  EXPECT_EQ(seen(before, Seconds{1}), Verdict::unheard);
  attempt.answeredAt = Seconds{0.5};
  EXPECT_EQ(seen(before, Seconds{0.51}), Verdict::open);
  EXPECT_EQ(seen(before, Seconds{0.55}), Verdict::refused);
}

TEST(ManagerHabits, AskWithTheMessageWhereItIsTaken) {
  EXPECT_EQ(obeying.firstWay(), MoveWay::message);
  EXPECT_EQ(ManagerHabits().firstWay(), MoveWay::configure);
  EXPECT_EQ((ManagerHabits{.takesMessage = true, .ignoresMessage = true}.firstWay()), MoveWay::configure);
}

TEST(ManagerHabits, EndTilesOnlyWhereThatCannotHarm) {
  EXPECT_EQ(obeying.wayAfter(MoveWay::message, false), MoveWay::configure);
  EXPECT_EQ(obeying.wayAfter(MoveWay::configure, false), MoveWay::untile);
  EXPECT_EQ(obeying.wayAfter(MoveWay::untile, false), std::nullopt);
  EXPECT_EQ(obeying.wayAfter(MoveWay::untile, true), MoveWay::pull);
  EXPECT_EQ(obeying.wayAfter(MoveWay::pull, true), std::nullopt);
  const ManagerHabits tiling{.takesMessage = true, .movesByHand = true};
  EXPECT_EQ(tiling.wayAfter(MoveWay::configure, true), std::nullopt);
  const ManagerHabits old{.maximizes = true, .movesByHand = true};
  EXPECT_EQ(old.wayAfter(MoveWay::configure, true), std::nullopt);
}

}  // namespace tilwin::x11
