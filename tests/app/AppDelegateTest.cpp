#include <array>
#include <optional>
#include <string>
#include <vector>

#include "tests/app/HotKeyCenterFixture.h"
#include "tests/app/RunningProgram.h"

namespace tilwin {
namespace {

constexpr Rect leftHalf{0, 25, 720, 875};
constexpr HotKeySpec f5{96, 0};
constexpr HotKeySpec controlOptionA{0, 6144};

using OwnerSet = HotKeyCenter::OwnerSet;

/// The program, and a user at it.
struct AppDelegateTest : RunningProgram {
  AppDelegateTest() { desktop.windows.reserve(1, {.top = 25}); }

  Rect pressed(const HotKeySpec& keys) {
    desktop.keyboard.press(keys);
    desktop.time.runDue();
    return desktop.windows.find(window)->frame;
  }
  void putBack() { desktop.windows.moveByHand(window, untouched); }
  std::size_t registered() const { return desktop.keyboard.registrations().size(); }

  SimulatedWindows::Handle window = desktop.windows.open({.frame = untouched});
};

TilwinSettings withArea(const std::optional<HotKeySpec>& shortcut) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("Notes")};
  settings.customAreas[0].shortcut = shortcut;
  return settings;
}

TEST_F(AppDelegateTest, UntilItStartsItOnlyReads) {
  delegate.emplace(platform);
  EXPECT_EQ(registered(), 0);
  EXPECT_EQ(desktop.disk.writeCount(), 0);
  EXPECT_TRUE(desktop.time.isIdle());
  EXPECT_TRUE(desktop.log.lines().empty());
}

TEST_F(AppDelegateTest, WithoutStoredSettingsTheDefaultsWorkAndNothingIsWritten) {
  start();
  EXPECT_EQ(pressed(leftHalfKeys), leftHalf);
  EXPECT_EQ(desktop.disk.writeCount(), 0);
}

TEST_F(AppDelegateTest, AnOverrideTakesThePlaceOfTheDefault) {
  TilwinSettings settings;
  settings.shortcuts["leftHalf"] = f5;
  startWith(settings);
  EXPECT_EQ(pressed(leftHalfKeys), untouched);
  EXPECT_EQ(pressed(f5), leftHalf);
}

TEST_F(AppDelegateTest, ADisabledShortcutDoesNothing) {
  TilwinSettings settings;
  settings.clearShortcut(SnapAction::leftHalf);
  startWith(settings);
  EXPECT_EQ(pressed(leftHalfKeys), untouched);
  EXPECT_EQ(registered(), 28);
}

TEST_F(AppDelegateTest, GapAndMarginAreHonoured) {
  startWith({.gap = 8, .outer = 8});
  EXPECT_EQ(pressed(leftHalfKeys), (Rect{8, 33, 708, 859}));
}

TEST_F(AppDelegateTest, WidthsAreNotCycledWhenTheUserDoesNotWantIt) {
  startWith({.cycleWidths = false});
  EXPECT_EQ(pressed(leftHalfKeys), leftHalf);
  EXPECT_EQ(pressed(leftHalfKeys), leftHalf);
}

TEST_F(AppDelegateTest, IgnoredApplicationsAreNotMoved) {
  TilwinSettings settings;
  settings.ignoredApps = {desktop.windows.find(window)->bundleID};
  startWith(settings);
  EXPECT_EQ(pressed(leftHalfKeys), untouched);
}

TEST_F(AppDelegateTest, AnApplicationTakenOffTheIgnoredListIsMovedAgain) {
  const std::string ignored = desktop.windows.find(window)->bundleID;
  startWith({.ignoredApps = {"org.example.Other", ignored}});
  EXPECT_EQ(pressed(leftHalfKeys), untouched);
  change({.ignoredApps = {"org.example.Other"}});
  EXPECT_EQ(pressed(leftHalfKeys), leftHalf);
}

TEST_F(AppDelegateTest, TheLastApplicationTakenOffTheIgnoredListIsMovedAgain) {
  startWith({.ignoredApps = {desktop.windows.find(window)->bundleID}});
  EXPECT_EQ(pressed(leftHalfKeys), untouched);
  change({});
  EXPECT_EQ(pressed(leftHalfKeys), leftHalf);
}

TEST_F(AppDelegateTest, AnAreasShortcutPutsTheWindowThere) {
  startWith(withArea(f5));
  EXPECT_EQ(pressed(f5), (Rect{288, 25, 864, 875}));
}

TEST_F(AppDelegateTest, OfTwoAreasWithOneIdTheFirstCounts) {
  TilwinSettings settings = withArea(f5);
  settings.customAreas.push_back(settings.customAreas[0]);
  settings.customAreas[1].rect = {0, 0, 0.5, 0.5};
  settings.customAreas[1].shortcut = controlOptionA;
  startWith(settings);
  EXPECT_EQ(pressed(controlOptionA), (Rect{288, 25, 864, 875}));
}

TEST_F(AppDelegateTest, AnAreaThatIsGoneWhenItsPressArrivesDoesNothing) {
  startWith(withArea(f5));
  desktop.keyboard.press(f5);
  delegate->store().settings.set({});
  desktop.time.runDue();
  EXPECT_EQ(desktop.windows.find(window)->frame, untouched);
}

TEST_F(AppDelegateTest, AChangeTakesEffectFromTheMainQueue) {
  start();
  delegate->store().settings.set({.outer = 10});
  desktop.keyboard.press(leftHalfKeys);
  EXPECT_EQ(desktop.windows.find(window)->frame, untouched);
  desktop.time.runDue();
  EXPECT_EQ(desktop.windows.find(window)->frame, (Rect{10, 35, 710, 855}));
}

TEST_F(AppDelegateTest, EverythingFollowsAChangeWithoutANewStart) {
  start();
  TilwinSettings settings = withArea(f5);
  settings.gap = 20;
  settings.cycleWidths = false;
  change(settings);
  EXPECT_EQ(pressed(leftHalfKeys), (Rect{0, 25, 710, 875}));
  EXPECT_EQ(pressed(leftHalfKeys), (Rect{0, 25, 710, 875}));
  EXPECT_EQ(pressed(f5), (Rect{288, 25, 864, 875}));
  putBack();
  settings.ignoredApps = {desktop.windows.find(window)->bundleID};
  change(settings);
  EXPECT_EQ(pressed(leftHalfKeys), untouched);
}

TEST_F(AppDelegateTest, AnAreaMovedByTheUserIsMetAtItsNewPlaceWithoutRegisteringAgain) {
  TilwinSettings settings = withArea(f5);
  startWith(settings);
  settings.customAreas[0].rect = {0, 0, 0.5, 1};
  change(settings);
  EXPECT_EQ(pressed(f5), leftHalf);
  EXPECT_TRUE(desktop.keyboard.removals().empty());
}

TEST_F(AppDelegateTest, HotKeysAreRegisteredAgainOnlyWhenTheyChange) {
  start();
  change({.gap = 8, .showMenuBarIcon = false, .ignoredApps = {"org.example.Other"}});
  change({.gap = 9});
  EXPECT_TRUE(desktop.keyboard.removals().empty());
  EXPECT_EQ(desktop.log.lines().size(), 1);
  TilwinSettings settings{.gap = 9};
  settings.shortcuts["leftHalf"] = f5;
  change(settings);
  EXPECT_EQ(desktop.keyboard.removals().size(), 29);
  EXPECT_EQ(pressed(f5), (Rect{0, 25, 716, 875}));
  EXPECT_EQ(desktop.log.lines().size(), 2);
}

TEST_F(AppDelegateTest, RefusedShortcutsArePublished) {
  desktop.keyboard.holdElsewhere(rightHalfKeys);
  desktop.keyboard.holdElsewhere(f5);
  const TilwinSettings settings = withArea(f5);
  startWith(settings);
  EXPECT_EQ(delegate->store().unavailable.get(),
            (OwnerSet{SnapAction::rightHalf, settings.customAreas[0].id}));
  desktop.keyboard.letGoElsewhere(rightHalfKeys);
  change(withArea(std::nullopt));
  EXPECT_EQ(delegate->store().unavailable.get(), OwnerSet{});
}

TEST_F(AppDelegateTest, TheLogCountsActionsAndAreas) {
  desktop.keyboard.holdElsewhere(f5);
  startWith(withArea(f5));
  EXPECT_EQ(desktop.log.lines(),
            std::vector<std::string>{"Tilwin: 29 of 30 shortcuts work; another program holds F5"});
  change({});
  ASSERT_FALSE(desktop.log.lines().empty());
  EXPECT_EQ(desktop.log.lines().back(), "Tilwin: 29 of 29 shortcuts work");
}

TEST_F(AppDelegateTest, AShortcutThatTheSettingsHoldTwiceIsNotBlamedOnAnotherProgram) {
  desktop.keyboard.holdElsewhere(rightHalfKeys);
  startWith(withArea(leftHalfKeys));
  EXPECT_EQ(desktop.log.lines(), std::vector<std::string>{"Tilwin: 28 of 30 shortcuts work; "
                                                          "the settings have twice ⌃⌥←; "
                                                          "another program holds ⌃⌥→"});
}

TEST_F(AppDelegateTest, TheLogNamesRefusedShortcutsInTheWordsOfTheDesktop) {
  static constexpr std::array keys =
      std::to_array<Wording::Word>({{"⌃", "Ctrl+"}, {"⌥", "Alt+"}, {"←", "Left"}, {"→", "Right"}});
  desktop.words.spoken.keys = keys;
  desktop.keyboard.holdElsewhere(leftHalfKeys);
  desktop.keyboard.holdElsewhere(rightHalfKeys);
  start();
  EXPECT_EQ(desktop.log.lines(),
            std::vector<std::string>{
                "Tilwin: 27 of 29 shortcuts work; another program holds Ctrl+Alt+Left, Ctrl+Alt+Right"});
}

TEST_F(AppDelegateTest, AChangeThatStillWaitsWhenItGoesDoesNothing) {
  start();
  delegate->store().settings.set({.gap = 8});
  delegate.reset();
  desktop.time.runDue();
  EXPECT_EQ(registered(), 0);
}

TEST_F(AppDelegateTest, BrokenStoredSettingsDoNotStopTheStart) {
  desktop.disk.store(SettingsStore::key, "{\"gap\":");
  start();
  EXPECT_EQ(pressed(leftHalfKeys), leftHalf);
}

}  // namespace
}  // namespace tilwin
