#include "core/snap/SnapController.h"
#include "tests/core/snap/Snapping.h"

namespace tilwin {
namespace {

constexpr Rect beforeTheDrag{100, 100, 800, 600};
constexpr Rect whereDropped{-300, 200, 800, 600};

/// A window that the user has just dropped and the provider has told of.
struct SnapOnRelease : testing::Test, Snapping {
  Window dropped = open(whereDropped);

  SnapOnRelease() { (void)desktop.provider()->allWindows(); }

  bool snap(SnapAction to, const Rect& from = beforeTheDrag) {
    return controller.snap(dropped, to, display(0), from);
  }
};

TEST_F(SnapOnRelease, PutsTheWindowOnTheDisplayAndTells) {
  EXPECT_TRUE(snap(SnapAction::leftHalf));
  EXPECT_EQ(frame(dropped), leftHalf);
  EXPECT_EQ(events, std::vector{Event(dropped, SnapAction::leftHalf)});
}

TEST_F(SnapOnRelease, TheDisplayIsTheOneGivenNotTheOneTheWindowIsOn) {
  desktop.setDisplays("1440x900+0+0,1000x800+1440+0");
  EXPECT_TRUE(controller.snap(dropped, SnapAction::rightHalf, display(1), beforeTheDrag));
  EXPECT_EQ(frame(dropped), (Rect{1940, 0, 500, 800}));
}

TEST_F(SnapOnRelease, RemembersTheFrameFromBeforeTheDrag) {
  EXPECT_TRUE(snap(SnapAction::leftHalf));
  EXPECT_EQ(controller.originalFrame(dropped), beforeTheDrag);
  EXPECT_TRUE(controller.perform(SnapAction::restore));
  EXPECT_EQ(frame(dropped), beforeTheDrag);
}

TEST_F(SnapOnRelease, DoesNotOverwriteAFrameRememberedEarlier) {
  controller.remember({.id = dropped, .frame = {1, 2, 3, 4}});
  EXPECT_TRUE(snap(SnapAction::leftHalf));
  EXPECT_EQ(controller.originalFrame(dropped), (Rect{1, 2, 3, 4}));
}

TEST_F(SnapOnRelease, DoesNotCycleWidths) {
  EXPECT_TRUE(snap(SnapAction::leftHalf, leftHalf));
  EXPECT_EQ(frame(dropped), leftHalf);
}

TEST_F(SnapOnRelease, MovesEvenAWindowThatIsThereAlready) {
  EXPECT_TRUE(snap(SnapAction::leftHalf));
  EXPECT_TRUE(snap(SnapAction::leftHalf));
  EXPECT_EQ(moves(), 2);
}

TEST_F(SnapOnRelease, LeavesIgnoredApplicationsToTheCaller) {
  controller.ignoredBundleIDs = {desktop.windows.find(dropped)->bundleID};
  EXPECT_TRUE(snap(SnapAction::leftHalf));
}

TEST_F(SnapOnRelease, FailsForActionsWithoutAFrameAndRemembersNothing) {
  for (const SnapAction action :
       {SnapAction::restore, SnapAction::nextDisplay, SnapAction::previousDisplay}) {
    EXPECT_FALSE(snap(action));
  }
  EXPECT_EQ(moves(), 0);
  EXPECT_EQ(controller.originalFrame(dropped), std::nullopt);
}

TEST_F(SnapOnRelease, AMoveThatFailsIsNotReportedButRemembered) {
  desktop.windows.close(dropped);
  EXPECT_FALSE(snap(SnapAction::leftHalf));
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(controller.originalFrame(dropped), beforeTheDrag);
}

}  // namespace
}  // namespace tilwin
