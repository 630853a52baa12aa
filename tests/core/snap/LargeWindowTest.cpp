#include "core/snap/SnapController.h"
#include "tests/core/snap/Snapping.h"

namespace tilwin {
namespace {

/// A window that is never narrower than 1000 points and never lower than 500.
struct LargeWindow : testing::Test, Snapping {
  Rect before{200, 100, 1100, 600};
  Window window = desktop.windows.open({.frame = before, .minimumWidth = 1000, .minimumHeight = 500});

  LargeWindow() { (void)desktop.provider()->allWindows(); }

  /// The frame of the window after this action.
  Rect after(SnapAction action) {
    EXPECT_TRUE(controller.perform(action));
    return frame(window);
  }
};

TEST_F(LargeWindow, StandsAtTheOuterEdgesOfItsTileInsideTheVisibleFrame) {
  EXPECT_EQ(after(SnapAction::rightThird), (Rect{440, 25, 1000, 875}));
  EXPECT_EQ(after(SnapAction::leftThird), (Rect{0, 25, 1000, 875}));
  EXPECT_EQ(after(SnapAction::bottomRight), (Rect{440, 400, 1000, 500}));
  EXPECT_EQ(after(SnapAction::topRight), (Rect{440, 25, 1000, 500}));
  EXPECT_EQ(after(SnapAction::centerThird), (Rect{220, 25, 1000, 875}));
}

TEST_F(LargeWindow, KeepsTheMargin) {
  controller.outer = 8;
  EXPECT_EQ(after(SnapAction::bottomRight), (Rect{432, 393, 1000, 500}));
}

TEST_F(LargeWindow, StillCyclesThroughTheWidths) {
  const Rect narrow{440, 25, 1000, 875};
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(after(SnapAction::rightHalf), narrow);
    EXPECT_EQ(after(SnapAction::rightHalf), narrow) << "two thirds";
    EXPECT_EQ(after(SnapAction::rightHalf), narrow) << "a third";
  }
  desktop.windows.find(window)->minimumWidth = 900;
  EXPECT_EQ(after(SnapAction::rightHalf), (Rect{540, 25, 900, 875}));
  EXPECT_EQ(after(SnapAction::rightHalf), (Rect{480, 25, 960, 875})) << "two thirds";
  EXPECT_EQ(after(SnapAction::rightHalf), (Rect{540, 25, 900, 875})) << "a third";
  EXPECT_EQ(after(SnapAction::rightHalf), (Rect{540, 25, 900, 875})) << "a half";
  EXPECT_EQ(after(SnapAction::rightHalf), (Rect{480, 25, 960, 875})) << "two thirds";
}

TEST_F(LargeWindow, IsAlreadyThereTheSecondTime) {
  after(SnapAction::bottomRight);
  const auto movesBefore = moves();
  EXPECT_EQ(after(SnapAction::bottomRight), (Rect{440, 400, 1000, 500}));
  EXPECT_EQ(moves(), movesBefore);
}

TEST_F(LargeWindow, IsRestoredToWhereItWasBefore) {
  after(SnapAction::rightThird);
  after(SnapAction::bottomRight);
  EXPECT_EQ(after(SnapAction::restore), before);
}

TEST_F(LargeWindow, MadeSmallerStopsAtItsLeastSizeAndStaysThere) {
  EXPECT_EQ(after(SnapAction::smaller), (Rect{232, 132, 1036, 536}));
  EXPECT_EQ(after(SnapAction::smaller), (Rect{250, 150, 1000, 500}));
  EXPECT_EQ(after(SnapAction::smaller), (Rect{250, 150, 1000, 500}));
  EXPECT_EQ(after(SnapAction::smaller), (Rect{250, 150, 1000, 500}));
  EXPECT_EQ(after(SnapAction::larger), (Rect{218, 118, 1064, 564})) << "from what it has";
}

TEST_F(LargeWindow, LetGoAtTheRightEdgeStandsInside) {
  ASSERT_TRUE(controller.snap(window, SnapAction::rightHalf, display(0), before));
  EXPECT_EQ(frame(window), (Rect{440, 25, 1000, 875}));
}

TEST_F(LargeWindow, StandsInsideOnTheDisplayOfItsTile) {
  desktop.setDisplays("1440x900+0+0,1280x1000+1440+0");
  ASSERT_TRUE(controller.snap(window, SnapAction::rightHalf, display(1), before));
  EXPECT_EQ(frame(window), (Rect{1720, 0, 1000, 1000}));
  ASSERT_TRUE(controller.snap(window, SnapAction::rightHalf, display(0), before));
  EXPECT_EQ(frame(window), (Rect{440, 0, 1000, 900}));
}

}  // namespace
}  // namespace tilwin
