#include "app/keys/TakenKeysNotice.h"

#include <vector>

#include "core/settings/KeyNames.h"
#include "tests/app/RunningProgram.h"

namespace tilwin {
namespace {

/// A user who starts Tilwin for the first time.
struct TakenKeysNoticeTest : RunningProgram {
  void hold(SnapAction action) { desktop.keyboard.holdElsewhere(*TilwinSettings().shortcut(action)); }
  void startAgain() {
    delegate.reset();
    start();
  }
  [[nodiscard]] const std::vector<SimulatedNotifications::Shown>& shown() const {
    return desktop.notifications.shown;
  }
};

TEST_F(TakenKeysNoticeTest, SaysHowManyShortcutsOthersHoldAndWhich) {
  for (const auto action :
       {SnapAction::leftHalf, SnapAction::rightHalf, SnapAction::topHalf, SnapAction::center}) {
    hold(action);
  }
  start();
  ASSERT_EQ(shown().size(), 1U);
  EXPECT_EQ(shown()[0].notification.title, "4 shortcuts of Tilwin are taken");
  EXPECT_EQ(shown()[0].notification.text,
            "Your window manager or another program holds ⌃⌥←, ⌃⌥→, ⌃⌥↑ and 1 more. They do nothing in "
            "Tilwin until "
            "you change that.");
}

TEST_F(TakenKeysNoticeTest, SpeaksOfASingleOneAsOfOne) {
  hold(SnapAction::center);
  start();
  ASSERT_EQ(shown().size(), 1U);
  EXPECT_EQ(shown()[0].notification.title, "A shortcut of Tilwin is taken");
  EXPECT_EQ(
      shown()[0].notification.text,
      "Your window manager or another program holds ⌃⌥C. It does nothing in Tilwin until you change that.");
}

TEST_F(TakenKeysNoticeTest, ItsButtonOpensTheSectionOfShortcuts) {
  hold(SnapAction::center);
  start();
  ASSERT_EQ(shown().size(), 1U);
  shown()[0].press();
  desktop.time.runDue();
  ASSERT_TRUE(desktop.settingsWindow.form());
  EXPECT_EQ(desktop.settingsWindow.form()->chosenSection, "shortcuts");
}

TEST_F(TakenKeysNoticeTest, ItsButtonDoesNothingOnceTheProgramHasGone) {
  hold(SnapAction::center);
  start();
  ASSERT_EQ(shown().size(), 1U);
  delegate.reset();
  shown()[0].press();
  EXPECT_FALSE(desktop.settingsWindow.form());
}

TEST_F(TakenKeysNoticeTest, ComesOnceAndNotAgain) {
  hold(SnapAction::center);
  start();
  startAgain();
  EXPECT_EQ(shown().size(), 1U);
}

TEST_F(TakenKeysNoticeTest, WaitsForADesktopThatShowsIt) {
  hold(SnapAction::center);
  desktop.notifications.isThere = false;
  start();
  desktop.notifications.isThere = true;
  startAgain();
  EXPECT_EQ(shown().size(), 1U);
}

TEST_F(TakenKeysNoticeTest, DoesNotComeWhereAllShortcutsWork) {
  start();
  EXPECT_TRUE(shown().empty());
}

TEST_F(TakenKeysNoticeTest, SaysNothingOfAShortcutThatTheUserHasChosen) {
  const HotKeySpec f5{.keyCode = 0x60, .modifiers = 0};
  desktop.keyboard.holdElsewhere(f5);
  TilwinSettings settings;
  settings.shortcuts["center"] = f5;
  startWith(settings);
  EXPECT_TRUE(shown().empty());
}

}  // namespace
}  // namespace tilwin
