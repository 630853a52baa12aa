#include "tests/app/settings/ShortcutRecording.h"

namespace tilwin {
namespace {

TEST_F(ShortcutRecording, TheButtonAsksForKeysWhileItRecords) {
  open();
  EXPECT_EQ(recorderTitle(leftHalf), "⌃⌥←");
  presses(leftHalf);
  EXPECT_EQ(recorderTitle(leftHalf), "Press keys…");
  EXPECT_TRUE(form().isRecording());
  presses(leftHalf);
  EXPECT_EQ(recorderTitle(leftHalf), "⌃⌥←");
  EXPECT_FALSE(form().isRecording());
}

TEST_F(ShortcutRecording, RecordedKeysBecomeTheShortcutAndWorkAtOnce) {
  open();
  records(leftHalf, controlOptionA);
  EXPECT_EQ(recorderTitle(leftHalf), "⌃⌥A");
  EXPECT_EQ(settings().shortcut(SnapAction::leftHalf), controlOptionA);
  const auto window = desktop.windows.open({.frame = {100, 100, 800, 600}});
  EXPECT_TRUE(desktop.keyboard.press(controlOptionA));
  desktop.time.runDue();
  EXPECT_EQ(desktop.windows.find(window)->frame, (Rect{0, 0, 720, 900}));
}

TEST_F(ShortcutRecording, KeysAreOnlyTakenWhileRecording) {
  open();
  does(form::KeyPressed{controlOptionA});
  EXPECT_EQ(settings(), TilwinSettings{});
}

TEST_F(ShortcutRecording, CommandQIsRefusedWithAReasonAndChangesNothing) {
  open();
  records(leftHalf, commandQ);
  EXPECT_EQ(problem(leftHalf), "macOS uses this for Quit (Command-Q).");
  EXPECT_EQ(recorderTitle(leftHalf), "⌃⌥←");
  EXPECT_EQ(settings(), TilwinSettings{});
}

TEST_F(ShortcutRecording, EscapeLeavesTheShortcutAndTheProblemAsTheyAre) {
  open();
  records(leftHalf, commandQ);
  records(leftHalf, escape);
  EXPECT_EQ(problem(leftHalf), "macOS uses this for Quit (Command-Q).");
  EXPECT_EQ(recorderTitle(leftHalf), "⌃⌥←");
  EXPECT_FALSE(form().isRecording());
}

TEST_F(ShortcutRecording, AGoodShortcutClearsTheProblem) {
  open();
  records(leftHalf, commandQ);
  records(leftHalf, controlOptionA);
  EXPECT_EQ(problem(leftHalf), "");
}

TEST_F(ShortcutRecording, DeleteTurnsTheShortcutOffAndResetBringsItBack) {
  open();
  EXPECT_EQ(control<FormButton>(leftHalf), nullptr);
  records(leftHalf, backspace);
  EXPECT_EQ(recorderTitle(leftHalf), "Off");
  EXPECT_FALSE(desktop.keyboard.press(controlOptionLeft));
  ASSERT_NE(control<FormButton>(leftHalf), nullptr);
  EXPECT_EQ(control<FormButton>(leftHalf)->title, "Reset");
  presses(resetOf(SnapAction::leftHalf));
  EXPECT_EQ(recorderTitle(leftHalf), "⌃⌥←");
  EXPECT_EQ(control<FormButton>(leftHalf), nullptr);
  EXPECT_TRUE(desktop.keyboard.press(controlOptionLeft));
}

TEST_F(ShortcutRecording, ForwardDeleteTurnsTheShortcutOffWhateverIsHeldWithIt) {
  open();
  records(leftHalf, forwardDelete);
  EXPECT_EQ(recorderTitle(leftHalf), "Off");
}

TEST_F(ShortcutRecording, AnActionWithoutADefaultIsNotSet) {
  open();
  EXPECT_EQ(recorderTitle(shortcutOf(SnapAction::centerLarge)), "Not set");
  EXPECT_TRUE(control<FormRecorder>(shortcutOf(SnapAction::centerLarge))->isEmpty);
}

TEST_F(ShortcutRecording, ResetClearsTheProblem) {
  TilwinSettings settings;
  settings.shortcuts["leftHalf"] = controlOptionA;
  open(settings);
  records(leftHalf, commandQ);
  presses(resetOf(SnapAction::leftHalf));
  EXPECT_EQ(problem(leftHalf), "");
  EXPECT_EQ(recorderTitle(leftHalf), "⌃⌥←");
}

TEST_F(ShortcutRecording, AShortcutThatTilwinItselfHoldsReachesTheRecorderToo) {
  open();
  const auto window = desktop.windows.open({.frame = {100, 100, 800, 600}});
  presses(rightHalf);
  EXPECT_TRUE(desktop.keyboard.press(controlOptionLeft));
  desktop.time.runDue();
  EXPECT_EQ(problem(rightHalf), "Already set for “Left half”.");
  EXPECT_FALSE(form().isRecording());
  EXPECT_EQ(desktop.windows.find(window)->frame, (Rect{100, 100, 800, 600}));
}

TEST_F(ShortcutRecording, ItsOwnShortcutIsAcceptedAgain) {
  open();
  presses(leftHalf);
  desktop.keyboard.press(controlOptionLeft);
  desktop.time.runDue();
  EXPECT_EQ(problem(leftHalf), "");
  EXPECT_EQ(recorderTitle(leftHalf), "⌃⌥←");
}

TEST_F(ShortcutRecording, WhileItRecordsNoHotKeyIsRegisteredAgain) {
  open();
  presses(leftHalf);
  TilwinSettings settings;
  settings.shortcuts["rightHalf"] = controlOptionA;
  change(settings);
  EXPECT_TRUE(desktop.keyboard.removals().empty());
  does(form::KeyPressed{escape});
  change({.gap = 3, .shortcuts = settings.shortcuts});
  EXPECT_FALSE(desktop.keyboard.removals().empty());
}

TEST_F(ShortcutRecording, OnlyOneShortcutIsRecordedAtATime) {
  open();
  presses(leftHalf);
  presses(rightHalf);
  EXPECT_EQ(recorderTitle(leftHalf), "⌃⌥←");
  EXPECT_EQ(recorderTitle(rightHalf), "Press keys…");
}

TEST_F(ShortcutRecording, ClosingTheWindowOrLeavingItStopsRecording) {
  open();
  presses(leftHalf);
  does(form::FocusLost{});
  EXPECT_FALSE(form().isRecording());
  presses(leftHalf);
  does(form::WindowClosed{});
  change({.shortcuts = {{"leftHalf", controlOptionA}}});
  EXPECT_TRUE(desktop.keyboard.press(controlOptionA));
}

TEST_F(ShortcutRecording, AShortcutThatAnotherProgramHoldsIsMarked) {
  desktop.keyboard.holdElsewhere(controlOptionLeft);
  open();
  EXPECT_EQ(problem(leftHalf),
            "Another app already uses this shortcut, so it does not work. Choose a different one.");
  EXPECT_EQ(problem(rightHalf), "");
}

TEST_F(ShortcutRecording, AProblemOfTheRecordingIsShownBeforeThatOfTheDesktop) {
  desktop.keyboard.holdElsewhere(controlOptionLeft);
  open();
  records(leftHalf, commandQ);
  EXPECT_EQ(problem(leftHalf), "macOS uses this for Quit (Command-Q).");
}

TEST_F(ShortcutRecording, AFreedShortcutWorksWhenTheDesktopTellsOfAChange) {
  desktop.keyboard.holdElsewhere(controlOptionLeft);
  open();
  desktop.keyboard.letGoElsewhere(controlOptionLeft);
  EXPECT_NE(problem(leftHalf), "");
  desktop.keyboard.tellChange();
  desktop.time.runDue();
  EXPECT_EQ(problem(leftHalf), "");
  EXPECT_TRUE(desktop.keyboard.press(controlOptionLeft));
}

TEST_F(ShortcutRecording, AFreedShortcutWorksWhenTheSettingsAreOpened) {
  desktop.keyboard.holdElsewhere(controlOptionLeft);
  startWith({});
  desktop.keyboard.letGoElsewhere(controlOptionLeft);
  delegate->showSettings();
  EXPECT_EQ(problem(leftHalf), "");
}

TEST_F(ShortcutRecording, AFreedShortcutWorksWhenAnotherIsRecordedOrReset) {
  desktop.keyboard.holdElsewhere(controlOptionLeft);
  open();
  desktop.keyboard.letGoElsewhere(controlOptionLeft);
  records(rightHalf, escape);
  EXPECT_EQ(problem(leftHalf), "");
}

TEST_F(ShortcutRecording, NothingIsTriedAgainWhenNothingWasRefused) {
  open();
  records(rightHalf, escape);
  EXPECT_TRUE(desktop.keyboard.removals().empty());
}

TEST_F(ShortcutRecording, AShortcutLostToAChangeOfTheDesktopIsMarked) {
  open();
  desktop.keyboard.removeKey(controlOptionLeft.keyCode);
  desktop.keyboard.tellChange();
  desktop.time.runDue();
  EXPECT_NE(problem(leftHalf), "");
}

TEST_F(ShortcutRecording, AChangeOfTheDesktopWhileRecordingIsFollowedAfterwards) {
  open();
  presses(rightHalf);
  desktop.keyboard.removeKey(controlOptionLeft.keyCode);
  desktop.keyboard.tellChange();
  EXPECT_TRUE(desktop.keyboard.removals().empty());
  does(form::KeyPressed{escape});
  EXPECT_NE(problem(leftHalf), "");
}

TEST_F(ShortcutRecording, ARetryThatChangesNothingIsNotLogged) {
  desktop.keyboard.holdElsewhere(controlOptionLeft);
  startWith({});
  const auto lines = desktop.log.lines().size();
  desktop.keyboard.tellChange();
  desktop.keyboard.tellChange();
  EXPECT_EQ(desktop.log.lines().size(), lines);
}

}  // namespace
}  // namespace tilwin
