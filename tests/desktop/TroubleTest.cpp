#include <gtest/gtest.h>

#include <csignal>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/GrabbedKey.h"
#include "tests/desktop/harness/ResourceUse.h"

namespace tilwin::desktop {

namespace {

/// Each test does something to the desktop under Tilwin's feet; Tilwin then has to serve the next press.
class Trouble : public DesktopTest {};

}  // namespace

TEST_F(Trouble, AWindowClosedWhileItIsBeingSnappedHarmsNothing) {
  for (int count = 0; count < 40; ++count) {
    TestWindow window = session().window({.title = "Short-lived"});
    focus(window.id());
    press(leftHalfKeys);
    window.destroy();
  }
  EXPECT_TRUE(serves());
  EXPECT_EQ(tilwin().log().find("X error"), std::string::npos) << tilwin().log();
}

TEST_F(Trouble, APressWithNoWindowFocusedDoesNothing) {
  ASSERT_TRUE(desktop().waitUntil([] { return desktop().clients().empty(); }));
  press(leftHalfKeys);
  EXPECT_TRUE(serves());
}

TEST_F(Trouble, AWindowManagerRestartedWhileTilwinRunsHarmsNothing) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), {0, 0, 960, 1080}));
  session().manager().restart();
  focus(window.id());
  press("Control+Alt+Right");
  EXPECT_TRUE(stands(window.id(), {960, 0, 960, 1080}));
}

TEST_F(Trouble, PressesWithoutAWindowManagerDoNothingAndTheNextOneIsServed) {
  const TestWindow window = session().window();
  focus(window.id());
  session().manager().stop();
  press(leftHalfKeys);
  press(restoreKeys);
  session().manager().start();
  EXPECT_TRUE(serves());
}

TEST_F(Trouble, ACombinationHeldByAnotherProgramIsNamedAndTheOthersWork) {
  endTilwin();
  {
    const GrabbedKey grabbed(session().server().display(), leftHalfKeys);
    restartTilwin();
    EXPECT_NE(tilwin().log().find("28 of 29 shortcuts work; another program holds Ctrl+Alt+Left"),
              std::string::npos)
        << tilwin().log();
    EXPECT_TRUE(serves());
  }
  restartTilwin();
  EXPECT_NE(tilwin().log().find("29 of 29 shortcuts work"), std::string::npos) << tilwin().log();
}

TEST_F(Trouble, ASecondTilwinHandsOverToTheFirstWhichOpensItsSettings) {
  ChildProcess second = session().start("second", {arguments().tilwin.string()});
  EXPECT_EQ(second.waitFor(answerTimeout), (ExitStatus{.code = 0, .signal = std::nullopt}));
  const auto settingsAreOpen = [] {
    const auto window = desktop().windowOfProcess(tilwin().process().pid());
    return window && desktop().title(*window) == "Tilwin Settings";
  };
  EXPECT_TRUE(desktop().waitUntil(settingsAreOpen));
  EXPECT_TRUE(serves());
  restartTilwin();
}

TEST_F(Trouble, WithoutASessionBusASecondTilwinFindsAllShortcutsTakenAndLeavesTheFirstServing) {
  ChildProcess second = session().start(
      "second",
      {"/usr/bin/env", "DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent", arguments().tilwin.string()});
  EXPECT_TRUE(desktop().waitUntil(
      [&] { return second.output().find("0 of 29 shortcuts work") != std::string::npos; }, startTimeout))
      << second.output();
  EXPECT_TRUE(serves());
}

TEST_F(Trouble, AskedToEndItEndsInGoodOrderAndGivesItsShortcutsBack) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    ASSERT_TRUE(keyIsGrabbed(session().server().display(), leftHalfKeys));
    tilwin().process().signal(signal);
    EXPECT_EQ(tilwin().process().waitFor(answerTimeout), (ExitStatus{.code = 0, .signal = std::nullopt}));
    EXPECT_FALSE(keyIsGrabbed(session().server().display(), leftHalfKeys));
    restartTilwin();
  }
}

TEST_F(Trouble, AtRestWithoutAutomaticLayoutsTilwinNeverWakesAndDoesNotFollowTheMouse) {
  constexpr int steps = 120;
  constexpr auto forTheDevice = 20;  // Qt hears when another device moves the pointer, not of its moves
  restartTilwinWith(R"({"restoreOnDisplayChange": false})");
  EXPECT_TRUE(serves());
  desktop().waitUntil([] { return false; }, Milliseconds{1000});
  const auto before = useOf(tilwin().process().pid());
  ASSERT_TRUE(before);
  desktop().waitUntil([] { return false; }, Milliseconds{3000});
  const auto rested = useOf(tilwin().process().pid());
  ASSERT_TRUE(rested);
  EXPECT_EQ(rested->wakeUps, before->wakeUps);
  session().input().glide({1900, 1000}, steps);
  const auto after = useOf(tilwin().process().pid());
  ASSERT_TRUE(after);
  EXPECT_LT(after->wakeUps, rested->wakeUps + forTheDevice);
}

}  // namespace tilwin::desktop
