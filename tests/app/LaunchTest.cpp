#include <algorithm>
#include <string>

#include "app/menu/MenuBarImage.h"
#include "tests/app/RunningProgram.h"

namespace tilwin {
namespace {

struct Launch : RunningProgram {
  bool isInTheMenu(const std::string& title) {
    return std::ranges::any_of(desktop.icon.open().items,
                               [&](const MenuItem& item) { return item.title == title; });
  }
};

TEST_F(Launch, TheIconIsInstalledAndShown) {
  start();
  EXPECT_TRUE(desktop.icon.isInstalled());
  EXPECT_TRUE(desktop.icon.isVisible());
  EXPECT_EQ(desktop.icon.image(), menuBarImage());
  EXPECT_EQ(desktop.icon.image().size, (Size{18, 18}));
}

TEST_F(Launch, AnIconThatTheUserDoesNotWantIsHidden) {
  startWith({.showMenuBarIcon = false});
  EXPECT_TRUE(desktop.icon.isInstalled());
  EXPECT_FALSE(desktop.icon.isVisible());
}

TEST_F(Launch, WithoutAFeedThereIsNoUpdater) {
  start();
  EXPECT_EQ(desktop.updates.state(), nullptr);
  EXPECT_FALSE(desktop.icon.choose({"Check for Updates…"}));
}

TEST_F(Launch, TheUpdaterStartsBeforeTheIconIsInstalled) {
  desktop.bundle.built = {{"SUFeedURL", "https://example.org/feed.xml"}};
  desktop.updates.whenStarting = [this] { EXPECT_FALSE(desktop.icon.isInstalled()); };
  start();
  ASSERT_NE(desktop.updates.state(), nullptr);
  EXPECT_EQ(desktop.updates.state()->starts, 1);
  EXPECT_TRUE(desktop.icon.isInstalled());
}

TEST_F(Launch, AnUpdaterThatDidNotStartIsNotInTheMenu) {
  desktop.bundle.built = {{"SUFeedURL", "https://example.org/feed.xml"}};
  desktop.updates.failToStart("no network");
  start();
  EXPECT_FALSE(isInTheMenu("Check for Updates…"));
}

TEST_F(Launch, AnUpdaterThatDidNotStartIsInTheMenuOnceACheckIsPossible) {
  desktop.bundle.built = {{"SUFeedURL", "https://example.org/feed.xml"}};
  desktop.updates.failToStart("no network");
  start();
  desktop.updates.setCanCheck(true);
  EXPECT_TRUE(choose({"Check for Updates…"}));
  EXPECT_EQ(desktop.updates.state()->checks, 1);
}

TEST_F(Launch, AnUpdaterThatStartedIsInTheMenuEvenWhileNoCheckIsPossible) {
  desktop.bundle.built = {{"SUFeedURL", "https://example.org/feed.xml"}};
  start();
  EXPECT_TRUE(isInTheMenu("Check for Updates…"));
}

TEST_F(Launch, AccessibilityIsAskedForOnlyIfItIsMissing) {
  start();
  EXPECT_EQ(desktop.user.askCount(), 0);
  desktop.user.setTrusted(false);
  start();
  EXPECT_EQ(desktop.user.askCount(), 1);
}

TEST_F(Launch, TheSettingsWindowIsNotOpened) {
  start();
  desktop.time.advance(MainQueue::Seconds(60));
  EXPECT_EQ(desktop.settingsWindow.showCount(), 0);
}

TEST_F(Launch, TheMenuOfAProgramThatHasGoneIsEmpty) {
  start();
  delegate.reset();
  EXPECT_EQ(desktop.icon.open(), MenuModel{});
}

TEST_F(Launch, WhatIsChosenFromTheMenuOfAProgramThatHasGoneIsNotDone) {
  const auto window = desktop.windows.open({.frame = {100, 100, 800, 600}});
  start();
  const MenuChoice leftHalf{"menuSnap:", "leftHalf"};
  desktop.icon.chooseFromEarlier(leftHalf);
  EXPECT_EQ(desktop.windows.find(window)->frame, (Rect{0, 0, 720, 900}));
  desktop.windows.moveByHand(window, {100, 100, 800, 600});
  delegate.reset();
  desktop.icon.chooseFromEarlier(leftHalf);
  EXPECT_EQ(desktop.windows.find(window)->frame, (Rect{100, 100, 800, 600}));
}

TEST_F(Launch, ADialogThatIsOpenComesInFrontOfTheSettings) {
  start();
  int broughtForward = 0;
  desktop.dialogs.whileOpen = [&] {
    const int before = desktop.dialogs.activations();
    delegate->showSettings();
    broughtForward = desktop.dialogs.activations() - before;
  };
  EXPECT_TRUE(choose({"Layouts", "Describe a layout…"}));
  EXPECT_EQ(broughtForward, 1);
}

TEST_F(Launch, ASettingsWindowLeftOpenIsClosedWhenTheProgramGoes) {
  start();
  delegate->showSettings();
  delegate.reset();
  EXPECT_FALSE(desktop.settingsWindow.isOpen());
}

TEST_F(Launch, AtRestNothingWakesTheProgramButTheCaptureEvery20Seconds) {
  start();
  desktop.time.runDue();
  desktop.time.advance(MainQueue::Seconds(19));
  EXPECT_FALSE(desktop.time.isIdle());
  change({.restoreOnDisplayChange = false});
  desktop.time.advance(MainQueue::Seconds(20));
  EXPECT_TRUE(desktop.time.isIdle());
}

}  // namespace
}  // namespace tilwin
