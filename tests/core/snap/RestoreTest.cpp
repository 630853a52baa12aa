#include "core/snap/SnapController.h"
#include "tests/core/snap/Snapping.h"

namespace tilwin {
namespace {

struct Restore : testing::Test, Snapping {
  /// Makes the focused window's frame from before the first action this one.
  void rememberAs(const Rect& frame) { controller.remember({.id = window, .frame = frame}); }
  Rect restored() {
    EXPECT_TRUE(controller.perform(SnapAction::restore));
    return frame(window);
  }

  void expectMaximisedByRestore() {
    desktop.windows.maximize(window);
    const Rect whole = frame(window);
    controller.perform(SnapAction::leftHalf);
    EXPECT_EQ(restored(), whole);
    EXPECT_TRUE(desktop.windows.find(window)->isMaximized);
  }

  static constexpr const char* twoDisplays = "1440x900+0+0,1000x800+1440+0";
  Window window = open(somewhere);
};

TEST_F(Restore, BringsBackTheFrameFromBeforeTheFirstOfSeveralActions) {
  controller.perform(SnapAction::leftHalf);
  controller.perform(SnapAction::topRight);
  controller.perform(SnapAction::smaller);
  EXPECT_EQ(restored(), somewhere);
}

TEST_F(Restore, TwiceInARowFailsTheSecondTime) {
  controller.perform(SnapAction::leftHalf);
  EXPECT_TRUE(controller.perform(SnapAction::restore));
  EXPECT_FALSE(controller.perform(SnapAction::restore));
  EXPECT_EQ(frame(window), somewhere);
}

TEST_F(Restore, OfAWindowNeverMovedFails) {
  EXPECT_FALSE(controller.perform(SnapAction::restore));
  EXPECT_EQ(moves(), 0);
}

TEST_F(Restore, RemembersNothingItself) {
  controller.perform(SnapAction::leftHalf);
  controller.perform(SnapAction::restore);
  EXPECT_EQ(controller.originalFrame(window), std::nullopt);
}

TEST_F(Restore, IsReportedLikeAnyAction) {
  controller.perform(SnapAction::leftHalf);
  controller.perform(SnapAction::restore);
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back(), Event(window, SnapAction::restore));
}

TEST_F(Restore, UsesUpTheEntryEvenWhenTheMoveFails) {
  rememberAs({1, 30, 300, 300});
  desktop.windows.find(window)->answer = SimulatedWindow::Answer::refuses;
  EXPECT_FALSE(controller.perform(SnapAction::restore));
  EXPECT_EQ(controller.originalFrame(window), std::nullopt);
}

TEST_F(Restore, OfAFrameOnADisplayThatIsGonePushesItIntoTheCurrentDisplay) {
  rememberAs({1700, 200, 800, 600});
  EXPECT_EQ(restored(), (Rect{640, 200, 800, 600}));
}

TEST_F(Restore, OfAFrameLargerThanTheCurrentDisplayShrinksIt) {
  rememberAs({2000, -1000, 2560, 1440});
  EXPECT_EQ(restored(), (Rect{0, 25, 1440, 875}));
}

TEST_F(Restore, OfAFrameWhoseTitleStripIsMostlyInViewLeavesItAlone) {
  rememberAs({100, 879, 800, 600});
  EXPECT_EQ(restored(), (Rect{100, 879, 800, 600}));
  rememberAs({-399, 100, 800, 600});
  EXPECT_EQ(restored(), (Rect{-399, 100, 800, 600}));
}

TEST_F(Restore, OfAFrameWhoseTitleStripIsHalfInViewPushesItInside) {
  rememberAs({100, 880, 800, 600});
  EXPECT_EQ(restored(), (Rect{100, 300, 800, 600}));
  rememberAs({1040, 100, 800, 600});
  EXPECT_EQ(restored(), (Rect{640, 100, 800, 600}));
}

TEST_F(Restore, OfAMaximisedWindowWhoseDisplayIsGoneForgetsThatItWasMaximised) {
  desktop.setDisplays(twoDisplays);
  desktop.windows.moveByHand(window, {1500, 100, 400, 300});
  desktop.windows.maximize(window);
  controller.perform(SnapAction::leftHalf);
  desktop.setDisplays("1440x900+0+0");
  controller.perform(SnapAction::restore);
  expectMaximisedByRestore();
}

TEST_F(Restore, OutOfTheMaximisedStateForgetsThatState) {
  desktop.setDisplays(twoDisplays);
  controller.perform(SnapAction::leftHalf);
  desktop.windows.maximize(window);
  EXPECT_EQ(restored(), somewhere);
  desktop.windows.moveByHand(window, {1500, 100, 400, 300});
  expectMaximisedByRestore();
}

TEST_F(Restore, LooksAtEveryDisplayForTheTitleStrip) {
  desktop.setDisplays(twoDisplays);
  rememberAs({1500, 50, 400, 300});
  EXPECT_EQ(restored(), (Rect{1500, 50, 400, 300}));
}

TEST_F(Restore, TheTitleStripOfALowWindowIsTheWholeWindow) {
  rememberAs({100, 15, 400, 20});
  EXPECT_EQ(restored(), (Rect{100, 25, 400, 20})) << "half of it is behind the menu bar";
  rememberAs({100, 16, 400, 20});
  EXPECT_EQ(restored(), (Rect{100, 16, 400, 20}));
}

TEST_F(Restore, OfAnEmptyFramePushesItInside) {
  rememberAs({-50, 100, 0, 0});
  desktop.windows.moveByHand(window, somewhere);
  EXPECT_TRUE(controller.perform(SnapAction::restore));
  EXPECT_EQ(frame(window).x, 0);
}

}  // namespace
}  // namespace tilwin
