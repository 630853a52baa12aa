#include <string>
#include <variant>

#include "tests/app/settings/ShortcutRecording.h"

namespace tilwin {
namespace {

/// Where "Left half" has other keys than its own.
TilwinSettings withOtherKeysForLeftHalf() {
  TilwinSettings settings;
  settings.shortcuts["leftHalf"] = ShortcutRecording::controlOptionA;
  return settings;
}

TEST_F(ShortcutRecording, AnOverriddenShortcutCanBeReset) {
  const auto showsReset = [&] { return control<FormButton>(leftHalf) != nullptr; };
  open(withOtherKeysForLeftHalf());
  EXPECT_TRUE(showsReset());
  EXPECT_EQ(control<FormButton>(rightHalf), nullptr);
  presses(resetOf(SnapAction::leftHalf));
  EXPECT_FALSE(showsReset());
  records(leftHalf, controlOptionA);
  EXPECT_TRUE(showsReset());
  records(leftHalf, backspace);
  EXPECT_TRUE(showsReset());
  EXPECT_EQ(recorderTitle(leftHalf), "Off");
}

TEST_F(ShortcutRecording, TheResetButtonComesBeforeTheKeys) {
  open(withOtherKeysForLeftHalf());
  const auto& controls = row(leftHalf)->controls;
  ASSERT_EQ(controls.size(), 2);
  EXPECT_TRUE(std::holds_alternative<FormButton>(controls[0]));
  EXPECT_TRUE(std::holds_alternative<FormRecorder>(controls[1]));
}

TEST_F(ShortcutRecording, DeleteClearsTheProblem) {
  open();
  records(leftHalf, commandQ);
  ASSERT_NE(problem(leftHalf), "");
  records(leftHalf, backspace);
  EXPECT_EQ(problem(leftHalf), "");
}

TEST_F(ShortcutRecording, AShortcutResetWhileAnotherIsRecordedWorksAfterwards) {
  open(withOtherKeysForLeftHalf());
  presses(rightHalf);
  presses(resetOf(SnapAction::leftHalf));
  does(form::KeyPressed{escape});
  EXPECT_TRUE(desktop.keyboard.press(controlOptionLeft));
  EXPECT_FALSE(desktop.keyboard.press(controlOptionA));
}

TEST_F(ShortcutRecording, AShortcutChangedElsewhereWhileAnotherIsRecordedWorksAfterwards) {
  open();
  presses(rightHalf);
  change(withOtherKeysForLeftHalf());
  EXPECT_TRUE(desktop.keyboard.removals().empty());
  does(form::KeyPressed{escape});
  EXPECT_TRUE(desktop.keyboard.press(controlOptionA));
  EXPECT_FALSE(desktop.keyboard.press(controlOptionLeft));
}

TEST_F(ShortcutRecording, EveryOtherButtonStopsRecording) {
  open(withOtherKeysForLeftHalf());
  for (const std::string& button : {resetOf(SnapAction::leftHalf), std::string(FormIds::addArea)}) {
    presses(rightHalf);
    ASSERT_TRUE(form().isRecording());
    presses(button);
    EXPECT_FALSE(form().isRecording()) << button;
  }
}

TEST_F(ShortcutRecording, ChoosingAnotherSectionStopsRecording) {
  open();
  presses(leftHalf);
  does(form::SectionChosen{"spacing"});
  EXPECT_FALSE(form().isRecording());
  does(form::KeyPressed{controlOptionA});
  EXPECT_EQ(settings(), TilwinSettings{});
}

TEST_F(ShortcutRecording, AFreedShortcutWorksWhenAnotherIsReset) {
  desktop.keyboard.holdElsewhere({124, HotKeySpec::control | HotKeySpec::option});
  open(withOtherKeysForLeftHalf());
  ASSERT_NE(problem(rightHalf), "");
  desktop.keyboard.letGoElsewhere({124, HotKeySpec::control | HotKeySpec::option});
  presses(resetOf(SnapAction::leftHalf));
  EXPECT_EQ(problem(rightHalf), "");
}

}  // namespace
}  // namespace tilwin
