#include "core/snap/SnapController.h"
#include "tests/app/HotKeyCenterFixture.h"

namespace tilwin {
namespace {

constexpr HotKeySpec controlOptionLeft{123, 6144};
constexpr HotKeySpec controlOptionRight{124, 6144};
constexpr HotKeySpec controlOptionBackspace{51, 6144};
constexpr HotKeySpec controlOptionCommandRight{124, 6400};

/// A user at the keyboard of a desktop on which the shortcuts work.
struct ShortcutToWindow : testing::Test {
  ShortcutToWindow() {
    desktop.windows.reserve(1, {.top = 25});
    center.onTarget = [this](const ShortcutOwner& owner) { controller.perform(std::get<SnapAction>(owner)); };
    EXPECT_TRUE(center.registerShortcuts({}).empty());
  }
  Rect pressed(const HotKeySpec& keys) {
    EXPECT_TRUE(desktop.keyboard.press(keys));
    desktop.time.runDue();
    const auto* found = desktop.windows.find(window);
    return found == nullptr ? Rect{} : found->frame;
  }

  SimulatedDesktop desktop{"1440x900+0+0,1000x800+1440+0"};
  SnapController controller{desktop.provider()};
  HotKeyCenter center{desktop.hotKeys(), desktop.mainQueue()};
  SimulatedWindows::Handle window = desktop.windows.open({.frame = untouched});
};

TEST_F(ShortcutToWindow, TheSameKeysAgainCycleTheWidth) {
  EXPECT_EQ(pressed(controlOptionLeft), (Rect{0, 25, 720, 875}));
  EXPECT_EQ(pressed(controlOptionLeft), (Rect{0, 25, 960, 875}));
  EXPECT_EQ(pressed(controlOptionLeft), (Rect{0, 25, 480, 875}));
  EXPECT_EQ(pressed(controlOptionLeft), (Rect{0, 25, 720, 875}));
}

TEST_F(ShortcutToWindow, BackspaceBringsTheFirstFrameBackOnce) {
  pressed(controlOptionLeft);
  pressed(controlOptionRight);
  EXPECT_EQ(pressed(controlOptionBackspace), untouched);
  desktop.windows.moveByHand(window, {5, 50, 300, 300});
  EXPECT_EQ(pressed(controlOptionBackspace), (Rect{5, 50, 300, 300}));
}

TEST_F(ShortcutToWindow, EachWindowHasAFrameOfItsOwnToGoBackTo) {
  pressed(controlOptionLeft);
  const auto first = window;
  window = desktop.windows.open({.frame = {200, 200, 400, 300}});
  pressed(controlOptionRight);
  EXPECT_EQ(pressed(controlOptionBackspace), (Rect{200, 200, 400, 300}));
  desktop.windows.focus(first);
  window = first;
  EXPECT_EQ(pressed(controlOptionBackspace), untouched);
}

TEST_F(ShortcutToWindow, ATerminalThatRoundsItsSizeRestoresAndCyclesToo) {
  window = desktop.windows.open({.frame = untouched, .widthStep = 9, .heightStep = 17});
  EXPECT_EQ(pressed(controlOptionRight), (Rect{720, 25, 720, 867}));
  EXPECT_EQ(pressed(controlOptionRight), (Rect{480, 25, 954, 867}));
  EXPECT_EQ(pressed(controlOptionBackspace), (Rect{100, 100, 792, 595}));
}

TEST_F(ShortcutToWindow, AMaximizedWindowIsTakenOutOfThatState) {
  desktop.windows.maximize(window);
  EXPECT_EQ(pressed(controlOptionRight), (Rect{720, 25, 720, 875}));
  EXPECT_FALSE(desktop.windows.find(window)->isMaximized);
}

TEST_F(ShortcutToWindow, BackspaceMaximizesAWindowAgainAndItsNormalFrameIsBeneath) {
  desktop.windows.maximize(window);
  pressed(controlOptionRight);
  pressed(controlOptionLeft);
  EXPECT_EQ(pressed(controlOptionBackspace), (Rect{0, 25, 1440, 875}));
  EXPECT_TRUE(desktop.windows.find(window)->isMaximized);
  desktop.windows.unmaximize(window);
  EXPECT_EQ(desktop.windows.find(window)->frame, untouched);
}

TEST_F(ShortcutToWindow, AWindowGoesToTheNextDisplayAndAroundToTheFirst) {
  pressed(controlOptionLeft);
  EXPECT_EQ(pressed(controlOptionCommandRight), (Rect{1440, 0, 500, 800}));
  EXPECT_EQ(pressed(controlOptionCommandRight), (Rect{0, 25, 720, 875}));
}

TEST_F(ShortcutToWindow, AnUnpluggedDisplaySendsRestoreToTheOneThatIsLeft) {
  desktop.windows.moveByHand(window, {1700, 100, 600, 500});
  pressed(controlOptionLeft);
  desktop.setDisplays("1440x900+0+0");
  EXPECT_EQ(pressed(controlOptionBackspace), (Rect{840, 100, 600, 500}));
}

TEST_F(ShortcutToWindow, ThisProgramsOwnWindowsAreNotMoved) {
  window = desktop.windows.open({.frame = untouched, .isOfThisProgram = true});
  EXPECT_EQ(pressed(controlOptionLeft), untouched);
}

TEST_F(ShortcutToWindow, AWindowThatVanishesIsNoHarm) {
  window = desktop.windows.open({.frame = untouched, .vanishesOnceSeen = true});
  EXPECT_EQ(pressed(controlOptionLeft), Rect{});
  EXPECT_EQ(pressed(controlOptionLeft), Rect{});
}

TEST_F(ShortcutToWindow, PressesInQuickSuccessionAllCount) {
  desktop.keyboard.press(controlOptionLeft);
  desktop.keyboard.press(controlOptionLeft);
  EXPECT_EQ(pressed(controlOptionLeft), (Rect{0, 25, 480, 875}));
}

}  // namespace
}  // namespace tilwin
