#include <vector>

#include "tests/contract/SettingsWindowContract.h"

namespace tilwin::contract {
namespace {

constexpr std::uint32_t everyModifier =
    HotKeySpec::control | HotKeySpec::option | HotKeySpec::shift | HotKeySpec::cmd;

}  // namespace

TEST_P(SettingsWindowContract, WhileItRecordsEveryKeyIsReportedAndSwallowed) {
  openRecording();
  const std::vector<HotKeySpec> pressed{
      {keys::a, 0},
      {keys::left, HotKeySpec::control | HotKeySpec::option},
      {keys::tab, 0},
      {keys::escape, 0},
      {keys::returnKey, 0},
      {keys::space, 0},
      {keys::w, HotKeySpec::control},
      {keys::f, HotKeySpec::control},
      {keys::q, HotKeySpec::cmd},
      {keys::backspace, 0},
      {keys::forwardDelete, 0},
      {keys::slash, 0},
      {keys::up, everyModifier},
  };
  std::vector<FormEvent> expected;
  for (const auto& keys : pressed) {
    driver->pressKeys(keys);
    expected.emplace_back(form::KeyPressed{keys});
  }
  EXPECT_TRUE(received(expected));
  EXPECT_TRUE(window.isOpen());
  EXPECT_TRUE(hasFocus(recorder));
}

TEST_P(SettingsWindowContract, ARecordedKeyThatRepeatsIsReportedOnce) {
  openRecording();
  driver->holdUntilItRepeats({keys::left, HotKeySpec::control});
  driver->pressKeys({keys::a, 0});
  EXPECT_TRUE(
      received({form::KeyPressed{{keys::left, HotKeySpec::control}}, form::KeyPressed{{keys::a, 0}}}));
}

TEST_P(SettingsWindowContract, ModifiersAloneAndLocksAreNotRecorded) {
  openRecording();
  driver->pressModifiersAlone();
  driver->setCapsLock(true);
  driver->pressKeys({keys::a, HotKeySpec::control});
  driver->setCapsLock(false);
  EXPECT_TRUE(received({form::KeyPressed{{keys::a, HotKeySpec::control}}}));
}

TEST_P(SettingsWindowContract, ATextFieldGetsNothingWhileARecorderRecords) {
  open("areas");
  driver->focus("area1.name");
  setRecording("area1.keys", true);
  redraw();
  driver->pressKeys({keys::a, HotKeySpec::shift});
  EXPECT_TRUE(received({form::KeyPressed{{keys::a, HotKeySpec::shift}}}));
  EXPECT_EQ(driver->text("area1.name"), "Reading");
}

TEST_P(SettingsWindowContract, TheKeyThatEndsARecordingDoesNothingElse) {
  openRecording();
  reaction = [&](const FormEvent&) {
    setRecording(recorder, false);
    redraw();
  };
  driver->holdUntilItRepeats({keys::escape, 0});
  EXPECT_TRUE(received({form::KeyPressed{{keys::escape, 0}}}));
  EXPECT_TRUE(window.isOpen());
}

TEST_P(SettingsWindowContract, AfterARecordingKeysGoWhereTheyWent) {
  openRecording();
  setRecording(recorder, false);
  redraw();
  driver->pressKeys({keys::space, 0});
  EXPECT_TRUE(received({form::ButtonPressed{recorder}}));
  driver->pressKeys({keys::escape, 0});
  EXPECT_TRUE(received({form::ButtonPressed{recorder}, form::WindowClosed{}}));
}

TEST_P(SettingsWindowContract, ARecordingStartsFromItsButtonByMouseOrKeyboard) {
  open("shortcuts");
  reaction = [&](const FormEvent& event) {
    setRecording(recorder, event == FormEvent(form::ButtonPressed{recorder}));
    redraw();
  };
  driver->press(recorder);
  driver->pressKeys({keys::left, HotKeySpec::cmd});
  driver->pressKeys({keys::returnKey, 0});
  driver->pressKeys({keys::right, HotKeySpec::cmd});
  EXPECT_TRUE(received({form::ButtonPressed{recorder}, form::KeyPressed{{keys::left, HotKeySpec::cmd}},
                        form::ButtonPressed{recorder}, form::KeyPressed{{keys::right, HotKeySpec::cmd}}}));
}

TEST_P(SettingsWindowContract, TellsWhenTheUserTurnsToAnotherProgram) {
  open("shortcuts");
  driver->leaveProgram();
  EXPECT_TRUE(received({form::FocusLost{}}));
  driver->returnToProgram();
  driver->leaveProgram();
  EXPECT_TRUE(received({form::FocusLost{}, form::FocusLost{}}));
}

TEST_P(SettingsWindowContract, EscapeClosesIt) {
  open("spacing");
  driver->pressKeys({keys::escape, 0});
  EXPECT_TRUE(received({form::WindowClosed{}}));
}

TEST_P(SettingsWindowContract, SlidersMoveByTheirStepWithTheArrowKeys) {
  open("spacing");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->focus("margin");
  driver->pressKeys({keys::right, 0});
  driver->pressKeys({keys::right, 0});
  driver->pressKeys({keys::left, 0});
  EXPECT_TRUE(received(
      {form::SliderMoved{"margin", 9}, form::SliderMoved{"margin", 10}, form::SliderMoved{"margin", 9}}));
}

TEST_P(SettingsWindowContract, ContinuousSlidersMoveByAHundredthOrATenth) {
  open("areas");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->focus("area1.Left");
  driver->pressKeys({keys::right, 0});
  EXPECT_NEAR(findControl<FormSlider>(form, "area1.Left")->value, 0.21, 1e-9);
  driver->pressKeys({keys::pageUp, 0});
  EXPECT_NEAR(findControl<FormSlider>(form, "area1.Left")->value, 0.31, 1e-9);
}

TEST_P(SettingsWindowContract, TogglesAndButtonsObeySpaceAndReturn) {
  open("behavior");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->focus("icon");
  driver->pressKeys({keys::space, 0});
  driver->pressKeys({keys::returnKey, 0});
  driver->focus("native-open");
  driver->pressKeys({keys::returnKey, 0});
  EXPECT_TRUE(received({form::ToggleChanged{"icon", false}, form::ToggleChanged{"icon", true},
                        form::ButtonPressed{"native-open"}}));
}

}  // namespace tilwin::contract
