#include <gtest/gtest.h>

#include <algorithm>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

class Shortcuts : public DesktopTest {};

}  // namespace

TEST_F(Shortcuts, EachDefaultShortcutPutsTheFocusedWindowWhereItsActionSays) {
  const TestWindow window = session().window();
  for (const auto& shortcut : oneDisplayShortcuts) {
    SCOPED_TRACE(std::string(shortcut.shown) + " " + shortcut.action);
    focusAtStart(window.id());
    if (shortcut.frame == startFrame) {
      press(leftHalfKeys);
      ASSERT_TRUE(stands(window.id(), {0, 0, 960, 1080}));
    }
    press(shortcut.chord);
    EXPECT_TRUE(stands(window.id(), shortcut.frame));
    press(restoreKeys);
    EXPECT_TRUE(stands(window.id(), startFrame));
  }
}

TEST_F(Shortcuts, WithOneDisplayNothingMovesToAnother) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(nextDisplayKeys);
  press(previousDisplayKeys);
  window.settle();
  EXPECT_TRUE(stands(window.id(), startFrame));
}

TEST_F(Shortcuts, LeftHalfPressedAgainCyclesThroughTheWidths) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  for (const double width : {960.0, 1280.0, 640.0, 960.0}) {
    press(leftHalfKeys);
    EXPECT_TRUE(stands(window.id(), {0, 0, width, 1080}));
  }
}

TEST_F(Shortcuts, PressesFasterThanTheManagerAnswersStillCycle) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  for (int count = 0; count < 3; ++count) press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {0, 0, 640, 1080}));
}

TEST_F(Shortcuts, RestoreAfterSeveralActionsBringsBackTheFirstFrameOnce) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  for (const char* keys : {"Control+Alt+Left", "Control+Alt+u", "Control+Alt+Return"}) press(keys);
  ASSERT_TRUE(stands(window.id(), {0, 0, 1920, 1080}));
  press(restoreKeys);
  EXPECT_TRUE(stands(window.id(), startFrame));
  placeByHand(window.id(), {100, 100, 700, 500});
  ASSERT_TRUE(stands(window.id(), {100, 100, 700, 500}));
  press(restoreKeys);
  window.settle();
  EXPECT_TRUE(stands(window.id(), {100, 100, 700, 500}));
}

TEST_F(Shortcuts, AHeldKeyActsOnce) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  auto& input = session().input();
  for (const char* key : {"Control", "Alt", "Left"}) input.keyDown(key);
  ASSERT_TRUE(stands(window.id(), {0, 0, 960, 1080}));
  window.settle(Milliseconds{1500});  // a held key repeats after two thirds of a second
  for (const char* key : {"Left", "Alt", "Control"}) input.keyUp(key);
  EXPECT_TRUE(stands(window.id(), {0, 0, 960, 1080}));
}

TEST_F(Shortcuts, AKeyPressedWhileAnotherIsStillHeldActsEachTime) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  auto& input = session().input();
  for (int round = 0; round < 2; ++round) {
    for (const char* key : {"Control", "Alt", "u"}) input.keyDown(key);
    ASSERT_TRUE(stands(window.id(), {0, 0, 960, 540}));
    input.keyDown("k");
    ASSERT_TRUE(stands(window.id(), {960, 540, 960, 540}));
    for (const char* key : {"u", "k", "Alt", "Control"}) input.keyUp(key);
  }
}

TEST_F(Shortcuts, NumLockAndCapsLockDoNotGetInTheWay) {
  const TestWindow window = session().window();
  auto& input = session().input();
  for (const bool capsLock : {false, true}) {
    for (const bool numLock : {false, true}) {
      SCOPED_TRACE(std::string(capsLock ? "Caps Lock " : "") + (numLock ? "Num Lock" : ""));
      focusAtStart(window.id());
      input.setCapsLock(capsLock);
      input.setNumLock(numLock);
      press(leftHalfKeys);
      EXPECT_TRUE(stands(window.id(), {0, 0, 960, 1080}));
      press(restoreKeys);
      EXPECT_TRUE(stands(window.id(), startFrame));
    }
  }
  input.setCapsLock(false);
  input.setNumLock(false);
}

TEST_F(Shortcuts, AfterASwitchOfTheKeyboardLayoutTheKeysKeepTheirPlaces) {
  const TestWindow window = session().window();
  for (const char* layout : {"de", "fr", "us,ru", "us"}) {
    SCOPED_TRACE(layout);
    session().server().setKeyboardLayout(layout);
    focusAtStart(window.id());
    press("Control+Alt+<AC01>");  // no shortcut: nothing may happen
    press("Control+Alt+<AD07>");  // U of an American keyboard
    EXPECT_TRUE(stands(window.id(), {0, 0, 960, 540}));
    press("Control+Alt+<LEFT>");
    EXPECT_TRUE(stands(window.id(), {0, 0, 960, 1080}));
    press(restoreKeys);
    EXPECT_TRUE(stands(window.id(), startFrame));
  }
}

TEST_F(Shortcuts, AKeyHeldWhileTheKeyboardLayoutIsSwitchedActsOnce) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  auto& input = session().input();
  for (const char* key : {"Control", "Alt", "<LEFT>"}) input.keyDown(key);
  ASSERT_TRUE(stands(window.id(), leftHalf));
  session().server().setKeyboardLayout("de");
  window.settle(Milliseconds{1500});  // a held key repeats after two thirds of a second
  EXPECT_TRUE(stands(window.id(), leftHalf));
  for (const char* key : {"<LEFT>", "Alt", "Control"}) input.keyUp(key);
  session().server().setKeyboardLayout("us");
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {0, 0, 1280, 1080}));
}

TEST_F(Shortcuts, TheClientSeesOneSizePerSnap) {
  TestWindow window = session().window();
  focusAtStart(window.id());
  window.settle();
  window.forget();
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), {0, 0, 960, 1080}));
  window.settle();
  const auto seen = window.recorded().configures;
  ASSERT_FALSE(seen.empty());
  for (const auto& configure : seen) EXPECT_EQ(configure.size, seen.back().size);
  EXPECT_EQ(std::ranges::count(seen, false, &Configure::synthetic), 1);
}

}  // namespace tilwin::desktop
