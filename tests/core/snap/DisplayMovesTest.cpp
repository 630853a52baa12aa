#include "core/snap/SnapController.h"
#include "tests/core/snap/Snapping.h"

namespace tilwin {
namespace {

DisplayInfo display(std::uint32_t id, const Rect& frame, bool isPrimary = false) {
  return {.id = id, .frame = frame, .visibleFrame = frame, .isPrimary = isPrimary};
}

std::optional<std::uint32_t> homeOf(const Rect& frame, const std::vector<DisplayInfo>& displays) {
  const DisplayInfo* home = SnapController::display(frame, displays);
  return home == nullptr ? std::nullopt : std::optional(home->id);
}

const std::vector twoDisplays{display(1, {0, 0, 1000, 800}, true), display(2, {1000, 0, 1000, 800})};

TEST(DisplayOfAWindow, IsTheOneThatCoversMostOfIt) {
  EXPECT_EQ(homeOf({100, 100, 300, 300}, twoDisplays), 1);
  EXPECT_EQ(homeOf({900, 100, 300, 300}, twoDisplays), 2);
}

TEST(DisplayOfAWindow, IsTheOneListedFirstWhenTwoCoverTheSame) {
  EXPECT_EQ(homeOf({900, 100, 200, 300}, twoDisplays), 1);
  EXPECT_EQ(homeOf({900, 100, 200, 300}, {twoDisplays[1], twoDisplays[0]}), 2);
}

TEST(DisplayOfAWindow, OutsideEveryDisplayIsThePrimaryOne) {
  EXPECT_EQ(homeOf({5000, 5000, 300, 300}, twoDisplays), 1);
  EXPECT_EQ(homeOf({5000, 5000, 300, 300}, {twoDisplays[1], twoDisplays[0]}), 1);
}

TEST(DisplayOfAWindow, OutsideEveryDisplayWithoutAPrimaryIsTheFirst) {
  EXPECT_EQ(homeOf({5000, 5000, 300, 300}, {display(7, {0, 0, 10, 10}), display(8, {10, 0, 10, 10})}), 7);
}

TEST(DisplayOfAWindow, WithoutDisplaysIsNone) { EXPECT_EQ(homeOf({0, 0, 10, 10}, {}), std::nullopt); }

TEST(DisplayOfAWindow, GoesByWholeFramesNotByWhatIsVisible) {
  std::vector<DisplayInfo> displays = twoDisplays;
  displays[0].visibleFrame = {0, 0, 100, 800};
  EXPECT_EQ(homeOf({600, 100, 500, 300}, displays), 1);
}

/// Listed in another order than they stand in: from the left 2, 1, 3.
struct ThreeDisplays : testing::Test, Snapping {
  ThreeDisplays() : Snapping("1000x800+0+0,1000x800-1000+0,2000x1600+1000+0", {}) {}
};

TEST_F(ThreeDisplays, NextGoesThroughThemFromLeftToRightAndWrapsAround) {
  const auto window = open({-900, 80, 500, 400});
  for (const Rect& expected :
       {Rect{100, 80, 500, 400}, Rect{1200, 160, 1000, 800}, Rect{-900, 80, 500, 400}}) {
    EXPECT_TRUE(controller.perform(SnapAction::nextDisplay));
    EXPECT_EQ(frame(window), expected);
  }
}

TEST_F(ThreeDisplays, PreviousFromTheFirstGoesToTheLast) {
  const auto window = open({-900, 80, 500, 400});
  EXPECT_TRUE(controller.perform(SnapAction::previousDisplay));
  EXPECT_EQ(frame(window), (Rect{1200, 160, 1000, 800}));
  EXPECT_TRUE(controller.perform(SnapAction::previousDisplay));
  EXPECT_EQ(frame(window), (Rect{100, 80, 500, 400}));
}

TEST_F(ThreeDisplays, TheWindowKeepsItsShareOfWhatIsVisible) {
  desktop.windows.reserve(1, {.top = 100});
  desktop.windows.reserve(3, {.left = 500, .bottom = 100});
  const auto window = open({500, 100, 500, 350});
  EXPECT_TRUE(controller.perform(SnapAction::nextDisplay));
  EXPECT_EQ(frame(window), (Rect{2250, 0, 750, 750}));
}

TEST_F(ThreeDisplays, AWindowThatHangsOverTheEdgeIsBroughtInside) {
  const auto window = open({-1200, -50, 500, 400});
  EXPECT_TRUE(controller.perform(SnapAction::nextDisplay));
  EXPECT_EQ(frame(window), (Rect{0, 0, 500, 400}));
}

TEST_F(ThreeDisplays, AnActionIsCarriedOutOnTheWindowsDisplay) {
  const auto window = open({1200, 160, 1000, 800});
  EXPECT_TRUE(controller.perform(SnapAction::leftHalf));
  EXPECT_EQ(frame(window), (Rect{1000, 0, 1000, 1600}));
}

TEST_F(ThreeDisplays, AWindowOutsideThemAllIsHandledOnThePrimaryOne) {
  const auto window = open({9000, 9000, 300, 300});
  EXPECT_TRUE(controller.perform(SnapAction::rightHalf));
  EXPECT_EQ(frame(window), (Rect{500, 0, 500, 800}));
}

TEST_F(ThreeDisplays, RestoreReturnsToTheDisplayTheWindowCameFrom) {
  const auto window = open({-900, 80, 500, 400});
  controller.perform(SnapAction::nextDisplay);
  controller.perform(SnapAction::nextDisplay);
  EXPECT_TRUE(controller.perform(SnapAction::restore));
  EXPECT_EQ(frame(window), (Rect{-900, 80, 500, 400}));
}

TEST_F(ThreeDisplays, AMoveThatFailsStillRemembers) {
  const auto window = open({-900, 80, 500, 400});
  desktop.windows.find(window)->answer = SimulatedWindow::Answer::refuses;
  EXPECT_FALSE(controller.perform(SnapAction::nextDisplay));
  EXPECT_EQ(controller.originalFrame(window), (Rect{-900, 80, 500, 400}));
}

TEST(OneDisplay, HasNoNextAndNoPrevious) {
  Snapping snapping;
  const auto window = snapping.open({100, 100, 400, 300});
  EXPECT_FALSE(snapping.controller.perform(SnapAction::nextDisplay));
  EXPECT_FALSE(snapping.controller.perform(SnapAction::previousDisplay));
  EXPECT_EQ(snapping.controller.originalFrame(window), std::nullopt);
}

TEST(WidthCycle, HoldsOnlyTheHalvesAndThirdsOfASide) {
  const Rect area{0, 0, 1200, 800};
  for (const SnapAction action : SnapActions::all()) {
    const auto target = SnapActions::frame(action, {}, area, 0, 0);
    const bool cycles = action == SnapAction::leftHalf || action == SnapAction::rightHalf ||
                        action == SnapAction::leftThird || action == SnapAction::rightThird ||
                        action == SnapAction::leftTwoThirds || action == SnapAction::rightTwoThirds;
    const bool cycled = target && SnapController::cycled(action, *target, area, 0, 0).has_value();
    EXPECT_EQ(cycled, cycles) << SnapActions::rawValue(action);
  }
}

TEST(WidthCycle, RecognisesAFrameWithinTwoPoints) {
  const Rect area{0, 0, 1200, 800};
  const auto next = [&](const Rect& current) {
    return SnapController::cycled(SnapAction::leftHalf, current, area, 0, 0);
  };
  EXPECT_EQ(next({2, 2, 598, 802}), SnapAction::leftTwoThirds);
  EXPECT_EQ(next({2.5, 0, 600, 800}), std::nullopt);
  EXPECT_EQ(next({0, 0, 600, 797}), std::nullopt);
}

TEST(WidthCycle, KnowsTheMarginAndTheGap) {
  const Rect area{0, 0, 1200, 800};
  const Rect half = *SnapActions::frame(SnapAction::rightHalf, {}, area, 10, 20);
  EXPECT_EQ(SnapController::cycled(SnapAction::rightThird, half, area, 10, 20), SnapAction::rightTwoThirds);
  EXPECT_EQ(SnapController::cycled(SnapAction::rightThird, half, area, 0, 0), std::nullopt);
}

TEST(WidthCycle, TheFirstMemberThatFitsCounts) {
  // On an area this narrow the half, the two thirds and the third are within two points of one another.
  EXPECT_EQ(SnapController::cycled(SnapAction::leftThird, {0, 0, 2, 800}, {0, 0, 4, 800}, 0, 0),
            SnapAction::leftTwoThirds);
}

}  // namespace
}  // namespace tilwin
