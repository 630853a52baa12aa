#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "tests/core/Arbitrary.h"
#include "tests/core/snap/Snapping.h"

namespace tilwin {
namespace {

/// The middle 60% of the desktop's visible frame 0,25 1440x875.
constexpr Rect middle{288, 25, 864, 875};

CustomArea areaAt(const NormalizedRect& rect) { return {.id = Uuid::random(), .name = "Area", .rect = rect}; }

struct SnapToArea : testing::Test, Snapping {
  Window window = open(somewhere);
};

TEST_F(SnapToArea, PutsTheFocusedWindowThere) {
  EXPECT_TRUE(controller.snap(CustomArea::starter("Notes")));
  EXPECT_EQ(frame(window), middle);
}

TEST_F(SnapToArea, IsAFractionOfTheVisibleFrameLessTheMarginAndKnowsNoGap) {
  controller.outer = 10;
  controller.gap = 50;
  EXPECT_TRUE(controller.snap(areaAt({0, 0, 1, 1})));
  EXPECT_EQ(frame(window), (Rect{10, 35, 1420, 855}));
  EXPECT_TRUE(controller.snap(areaAt({0.5, 0, 0.5, 1})));
  EXPECT_EQ(frame(window), (Rect{720, 35, 710, 855}));
}

TEST_F(SnapToArea, HappensOnTheDisplayThatTheWindowBelongsTo) {
  desktop.setDisplays("1440x900+0+0,1000x800+1440+0");
  desktop.windows.moveByHand(window, {1500, 50, 300, 300});
  EXPECT_TRUE(controller.snap(areaAt({0, 0, 0.5, 1})));
  EXPECT_EQ(frame(window), (Rect{1440, 0, 500, 800}));
}

TEST_F(SnapToArea, PutsFractionsIntoRangeWidthAndHeightFirst) {
  EXPECT_TRUE(controller.snap(areaAt({0.9, -1, 0.5, 2})));
  EXPECT_EQ(frame(window), (Rect{720, 25, 720, 875}));
  EXPECT_TRUE(controller.snap(areaAt({0, 0, 0.01, 0.01})));
  EXPECT_EQ(frame(window), (Rect{0, 25, 72, 44}));
}

TEST_F(SnapToArea, OnADisplaySmallerThanItsMarginsAWindowIsOnePointWide) {
  controller.outer = 800;
  EXPECT_TRUE(controller.snap(areaAt({0, 0, 1, 1})));
  EXPECT_EQ(frame(window), (Rect{800, 825, 1, 1}));
}

TEST_F(SnapToArea, RestoreBringsTheWindowBack) {
  EXPECT_TRUE(controller.snap(CustomArea::starter("Notes")));
  EXPECT_TRUE(controller.snap(areaAt({0, 0, 0.5, 0.5})));
  EXPECT_EQ(controller.originalFrame(desktop.provider()->focusedWindow().value().id), somewhere);
  EXPECT_TRUE(controller.perform(SnapAction::restore));
  EXPECT_EQ(frame(window), somewhere);
}

TEST_F(SnapToArea, AWindowThereAlreadyIsNeitherMovedNorRemembered) {
  for (const double off : {0, 1, -1}) {
    desktop.windows.moveByHand(window, {middle.x + off, middle.y - off, middle.width, middle.height + off});
    EXPECT_TRUE(controller.snap(CustomArea::starter("Notes")));
  }
  EXPECT_EQ(moves(), 0);
  EXPECT_FALSE(controller.perform(SnapAction::restore));
  desktop.windows.moveByHand(window, {middle.x + 2, middle.y, middle.width, middle.height});
  EXPECT_TRUE(controller.snap(CustomArea::starter("Notes")));
  EXPECT_EQ(moves(), 1);
}

TEST_F(SnapToArea, IsNotReported) {
  EXPECT_TRUE(controller.snap(CustomArea::starter("Notes")));
  EXPECT_TRUE(events.empty());
}

TEST_F(SnapToArea, LeavesIgnoredApplicationsAlone) {
  controller.ignoredBundleIDs = {desktop.windows.find(window)->bundleID};
  EXPECT_FALSE(controller.snap(CustomArea::starter("Notes")));
  EXPECT_EQ(frame(window), somewhere);
}

TEST_F(SnapToArea, FailsWithoutAFocusedWindow) {
  desktop.windows.unfocus();
  EXPECT_FALSE(controller.snap(CustomArea::starter("Notes")));
  EXPECT_EQ(moves(), 0);
}

TEST_F(SnapToArea, AMoveThatFailsIsRememberedAllTheSame) {
  desktop.windows.find(window)->answer = SimulatedWindow::Answer::refuses;
  EXPECT_FALSE(controller.snap(CustomArea::starter("Notes")));
  EXPECT_EQ(controller.originalFrame(desktop.provider()->focusedWindow().value().id), somewhere);
}

TEST(SnapToAreaWithoutProvider, Fails) {
  SnapController controller{std::weak_ptr<WindowProvider>()};
  EXPECT_FALSE(controller.snap(CustomArea::starter("Notes")));
  EXPECT_EQ(controller.captureFocusedWindow("Notes"), std::nullopt);
}

struct CaptureArea : SnapToArea {};

TEST_F(CaptureArea, IsWhereTheFocusedWindowStands) {
  desktop.windows.moveByHand(window, middle);
  const auto area = controller.captureFocusedWindow("Notes");
  ASSERT_TRUE(area.has_value());
  EXPECT_EQ(area->name, "Notes");
  EXPECT_EQ(area->rect, (NormalizedRect{0.2, 0, 0.6, 1}));
  EXPECT_EQ(area->shortcut, std::nullopt);
  EXPECT_NE(area->id, controller.captureFocusedWindow("Notes").value().id);
}

TEST_F(CaptureArea, CountsFromTheMargin) {
  controller.outer = 20;
  desktop.windows.moveByHand(window, {20, 45, 700, 835});
  EXPECT_EQ(controller.captureFocusedWindow("Left").value().rect, (NormalizedRect{0, 0, 0.5, 1}));
}

TEST_F(CaptureArea, OfAWindowPartlyOffTheScreenIsPushedOntoIt) {
  desktop.windows.moveByHand(window, {-100, -200, 720, 3000});
  EXPECT_EQ(controller.captureFocusedWindow("Left").value().rect, (NormalizedRect{0, 0, 0.5, 1}));
}

TEST_F(CaptureArea, NeitherMovesNorRemembersTheWindow) {
  EXPECT_TRUE(controller.captureFocusedWindow("Notes").has_value());
  EXPECT_EQ(moves(), 0);
  EXPECT_FALSE(controller.perform(SnapAction::restore));
}

TEST_F(CaptureArea, WorksForIgnoredApplicationsToo) {
  controller.ignoredBundleIDs = {desktop.windows.find(window)->bundleID};
  EXPECT_TRUE(controller.captureFocusedWindow("Notes").has_value());
}

TEST_F(CaptureArea, IsNothingWithoutAFocusedWindow) {
  desktop.windows.unfocus();
  EXPECT_EQ(controller.captureFocusedWindow("Notes"), std::nullopt);
}

RC_GTEST_PROP(CustomAreaProperties, AWindowCapturedInsideItsScreenComesBackToItsPlace, ()) {
  Snapping snapping;
  snapping.controller.outer = arbitrary::whole(0, 64);
  const double outer = snapping.controller.outer;
  const Rect place = arbitrary::inside({outer, 25 + outer, 1440 - 2 * outer, 875 - 2 * outer});
  const auto window = snapping.open(place);
  const auto area = snapping.controller.captureFocusedWindow("Here");
  RC_ASSERT(area.has_value());
  snapping.desktop.windows.moveByHand(window, {300, 300, 300, 300});
  RC_ASSERT(snapping.controller.snap(*area));
  RC_ASSERT(snapping.frame(window).isClose(place, 1));
}

}  // namespace
}  // namespace tilwin
