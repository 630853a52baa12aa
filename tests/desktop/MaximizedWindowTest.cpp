#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

/// Windows in a state in which the manager decides their frame.
class MaximizedWindows : public DesktopTest {
protected:
  static void maximize(const TestWindow& window) {
    desktop().setMaximized(window.id(), true);
    ASSERT_TRUE(desktop().waitUntil([&] { return desktop().maximized(window.id()); }));
    ASSERT_TRUE(stands(window.id(), wholeDisplay));
    window.settle();
  }
  static void fillScreen(const TestWindow& window) {
    desktop().set(window.id(), WindowState::fullScreen, true);
    ASSERT_TRUE(desktop().waitUntil([&] { return desktop().has(window.id(), WindowState::fullScreen); }));
    ASSERT_TRUE(stands(window.id(), wholeDisplay));
    window.settle();
  }
};

}  // namespace

TEST_F(MaximizedWindows, AreMaximisedAgainByRestoreWithTheirNormalFrameBeneath) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  maximize(window);
  for (const char* keys : {leftHalfKeys, "Control+Alt+i"}) press(keys);
  ASSERT_TRUE(stands(window.id(), {960, 0, 960, 540}));
  EXPECT_FALSE(desktop().maximized(window.id()));
  press(restoreKeys);
  EXPECT_TRUE(desktop().waitUntil([&] { return desktop().maximized(window.id()); })) << "never maximised";
  EXPECT_TRUE(stands(window.id(), wholeDisplay));
  desktop().setMaximized(window.id(), false);
  EXPECT_TRUE(stands(window.id(), startFrame));
}

TEST_F(MaximizedWindows, RestoredAndSnappedAgainStillKnowTheirNormalFrame) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  maximize(window);
  for (int round = 0; round < 2; ++round) {
    press(leftHalfKeys);
    ASSERT_TRUE(stands(window.id(), leftHalf));
    press(restoreKeys);
    ASSERT_TRUE(desktop().waitUntil([&] { return desktop().maximized(window.id()); }));
    ASSERT_TRUE(stands(window.id(), wholeDisplay));
    desktop().settle();
  }
  desktop().setMaximized(window.id(), false);
  EXPECT_TRUE(stands(window.id(), startFrame));
}

TEST_F(MaximizedWindows, ThatFillTheScreenDoSoAgainByRestoreWithTheirNormalFrameBeneath) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  fillScreen(window);
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), leftHalf));
  press(restoreKeys);
  EXPECT_TRUE(desktop().waitUntil([&] { return desktop().has(window.id(), WindowState::fullScreen); }));
  EXPECT_TRUE(stands(window.id(), wholeDisplay));
  desktop().set(window.id(), WindowState::fullScreen, false);
  EXPECT_TRUE(stands(window.id(), startFrame));
}

TEST_F(MaximizedWindows, MaximisedByTheUserAfterASnapAreRestoredToWhereTheyWereBefore) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), leftHalf));
  maximize(window);
  press("Control+Alt+Right");
  ASSERT_TRUE(stands(window.id(), rightHalf));
  press(restoreKeys);
  EXPECT_TRUE(stands(window.id(), startFrame));
  EXPECT_FALSE(desktop().maximized(window.id()));
}

TEST_F(MaximizedWindows, AskedToFillTheDisplayAfterASnapAreNotMaximised) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  maximize(window);
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), leftHalf));
  press("Control+Alt+Return");
  EXPECT_TRUE(stands(window.id(), wholeDisplay));
  EXPECT_FALSE(desktop().maximized(window.id()));
}

}  // namespace tilwin::desktop
