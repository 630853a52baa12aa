#include "app/HotKeyCenter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <optional>

#include "platform/simulated/SimulatedDesktop.h"
#include "tests/Printing.h"

namespace tilwin {
namespace {

constexpr std::uint32_t signature = 0x54574631;  // "TWF1"
constexpr HotKeySpec leftHalfKeys{123, 6144};
constexpr HotKeySpec rightHalfKeys{124, 6144};
constexpr HotKeySpec topHalfKeys{126, 6144};
constexpr HotKeySpec areaKeys{96, 4096};

/// Settings in which only these actions have their shortcuts.
TilwinSettings only(std::initializer_list<SnapAction> actions) {
  TilwinSettings settings;
  for (const SnapAction action : SnapActions::all()) {
    const bool kept = std::find(actions.begin(), actions.end(), action) != actions.end();
    if (!kept) settings.disabled.insert(std::string(SnapActions::rawValue(action)));
  }
  return settings;
}

CustomArea area(const std::string& name, std::optional<HotKeySpec> shortcut) {
  return {.id = Uuid::random(), .name = name, .shortcut = shortcut};
}

struct HotKeyCenterTest : testing::Test {
  HotKeyCenterTest() { listen(); }

  void listen() {
    center->onTarget = [this](const ShortcutOwner& owner) { targets.push_back(owner); };
  }
  HotKeyCenter::OwnerSet use(const TilwinSettings& settings) { return center->registerShortcuts(settings); }
  /// Presses the keys and lets the main queue work.
  void press(const HotKeySpec& spec) {
    desktop.keyboard.press(spec);
    desktop.time.runDue();
  }
  std::vector<std::uint32_t> ids() const {
    std::vector<std::uint32_t> result;
    for (const auto& each : desktop.keyboard.registrations()) result.push_back(each.identity.id);
    return result;
  }

  SimulatedDesktop desktop;
  std::optional<HotKeyCenter> center{std::in_place, desktop.hotKeys(), desktop.mainQueue()};
  std::vector<ShortcutOwner> targets;
};

using Owners = std::vector<ShortcutOwner>;

TEST_F(HotKeyCenterTest, TouchesNothingUntilItIsAskedToRegister) {
  EXPECT_TRUE(desktop.keyboard.registrations().empty());
  EXPECT_EQ(desktop.keyboard.handlerInstallations(), 0);
}

TEST_F(HotKeyCenterTest, WithEveryActionDisabledAndNoAreaNothingIsRegistered) {
  EXPECT_TRUE(use(only({})).empty());
  EXPECT_TRUE(desktop.keyboard.registrations().empty());
}

TEST_F(HotKeyCenterTest, DefaultsAreTwentyNineHotKeysWithDenseIdsInDeclarationOrder) {
  EXPECT_TRUE(use({}).empty());
  std::vector<SimulatedHotKeys::Registration> expected;
  for (const SnapAction action : SnapActions::all()) {
    const auto spec = TilwinSettings().shortcut(action);
    if (!spec) continue;
    const auto number = static_cast<std::uint32_t>(expected.size() + 1);
    expected.push_back({number, *spec, {signature, number}});
  }
  EXPECT_EQ(expected.size(), 29);
  EXPECT_EQ(desktop.keyboard.registrations(), expected);
}

TEST_F(HotKeyCenterTest, EveryDefaultShortcutReachesItsAction) {
  use({});
  for (const auto& row : TilwinSettings::defaults()) {
    targets.clear();
    press(row.spec);
    EXPECT_EQ(targets, Owners{row.action}) << SnapActions::rawValue(row.action);
  }
}

TEST_F(HotKeyCenterTest, OverridesTakeThePlaceOfDefaults) {
  TilwinSettings settings = only({SnapAction::leftHalf});
  settings.shortcuts["leftHalf"] = {0, 4096};
  use(settings);
  press(leftHalfKeys);
  EXPECT_TRUE(targets.empty());
  press({0, 4096});
  EXPECT_EQ(targets, Owners{SnapAction::leftHalf});
}

TEST_F(HotKeyCenterTest, AreasFollowTheActionsWithTheSameCounter) {
  TilwinSettings settings = only({SnapAction::leftHalf, SnapAction::rightHalf});
  settings.customAreas = {area("silent", std::nullopt), area("notes", areaKeys),
                          area("chat", HotKeySpec{97, 4096})};
  EXPECT_TRUE(use(settings).empty());
  EXPECT_EQ(ids(), (std::vector<std::uint32_t>{1, 2, 3, 4}));
  press(areaKeys);
  press({97, 4096});
  EXPECT_EQ(targets, (Owners{settings.customAreas[1].id, settings.customAreas[2].id}));
}

TEST_F(HotKeyCenterTest, ARefusedShortcutUsesUpItsIdAndIsReturnedAlone) {
  desktop.keyboard.holdElsewhere(rightHalfKeys);
  const auto refused = use(only({SnapAction::leftHalf, SnapAction::rightHalf, SnapAction::topHalf}));
  EXPECT_EQ(refused, HotKeyCenter::OwnerSet{SnapAction::rightHalf});
  EXPECT_EQ(ids(), (std::vector<std::uint32_t>{1, 3}));
  press(topHalfKeys);
  press(leftHalfKeys);
  EXPECT_EQ(targets, (Owners{SnapAction::topHalf, SnapAction::leftHalf}));
}

TEST_F(HotKeyCenterTest, ARefusedAreaIsReturnedToo) {
  TilwinSettings settings = only({SnapAction::leftHalf});
  settings.customAreas = {area("notes", areaKeys)};
  desktop.keyboard.holdElsewhere(areaKeys);
  EXPECT_EQ(use(settings), HotKeyCenter::OwnerSet{settings.customAreas[0].id});
}

TEST_F(HotKeyCenterTest, OfTwoOwnersWithTheSameCombinationTheSecondIsRefused) {
  TilwinSettings settings = only({SnapAction::leftHalf});
  settings.customAreas = {area("notes", leftHalfKeys)};
  EXPECT_EQ(use(settings), HotKeyCenter::OwnerSet{settings.customAreas[0].id});
  press(leftHalfKeys);
  EXPECT_EQ(targets, Owners{SnapAction::leftHalf});
}

TEST_F(HotKeyCenterTest, RegisteringAgainLeavesOnlyTheSecondCallsRegistrations) {
  use({});
  use(only({SnapAction::rightHalf}));
  EXPECT_EQ(ids(), std::vector<std::uint32_t>{1});
  press(leftHalfKeys);
  press(rightHalfKeys);
  EXPECT_EQ(targets, Owners{SnapAction::rightHalf});
}

TEST_F(HotKeyCenterTest, RegisteringAgainGivesTheOldOnesBackInTheirOrderFirst) {
  use(only({SnapAction::leftHalf, SnapAction::rightHalf}));
  EXPECT_TRUE(use(only({SnapAction::leftHalf, SnapAction::rightHalf})).empty())
      << "its own would be in the way";
  EXPECT_EQ(desktop.keyboard.removals(), (std::vector<HotKeys::Reference>{1, 2}));
}

TEST_F(HotKeyCenterTest, ARefusedOneIsNotGivenBack) {
  desktop.keyboard.holdElsewhere(leftHalfKeys);
  use(only({SnapAction::leftHalf, SnapAction::rightHalf}));
  center->unregisterAll();
  EXPECT_EQ(desktop.keyboard.removals().size(), 1);
}

TEST_F(HotKeyCenterTest, TheHandlerIsInstalledOnce) {
  use({});
  use(only({SnapAction::leftHalf}));
  use({});
  EXPECT_EQ(desktop.keyboard.handlerInstallations(), 1);
}

TEST_F(HotKeyCenterTest, UnregisterAllLeavesNothing) {
  use({});
  center->unregisterAll();
  EXPECT_TRUE(desktop.keyboard.registrations().empty());
  EXPECT_FALSE(desktop.keyboard.press(leftHalfKeys));
  EXPECT_TRUE(desktop.time.isIdle());
}

TEST_F(HotKeyCenterTest, APressIsReportedOnlyAfterTheEventHandlerHasReturned) {
  use({});
  EXPECT_TRUE(desktop.keyboard.press(leftHalfKeys));
  EXPECT_TRUE(targets.empty());
  desktop.time.runDue();
  EXPECT_EQ(targets, Owners{SnapAction::leftHalf});
}

TEST_F(HotKeyCenterTest, APressWhoseIdIsUnknownDoesNothing) {
  use({});
  for (const std::uint32_t id : {0u, 30u, 4294967295u}) desktop.keyboard.deliver(id);
  EXPECT_TRUE(desktop.time.isIdle());
  EXPECT_TRUE(targets.empty());
}

TEST_F(HotKeyCenterTest, TheReceiverIsTheOneSetWhenThePressIsReported) {
  use({});
  desktop.keyboard.press(leftHalfKeys);
  Owners later;
  center->onTarget = [&](const ShortcutOwner& owner) { later.push_back(owner); };
  desktop.time.runDue();
  EXPECT_TRUE(targets.empty());
  EXPECT_EQ(later, Owners{SnapAction::leftHalf});
}

TEST_F(HotKeyCenterTest, WithoutAReceiverAPressIsStillConsumed) {
  center->onTarget = nullptr;
  use({});
  EXPECT_TRUE(desktop.keyboard.press(leftHalfKeys));
  desktop.time.runDue();
  EXPECT_TRUE(targets.empty());
}

TEST_F(HotKeyCenterTest, APressBelongsToTheOwnerItHadWhenItCame) {
  use(only({SnapAction::leftHalf}));
  desktop.keyboard.press(leftHalfKeys);
  use(only({SnapAction::rightHalf}));
  desktop.time.runDue();
  EXPECT_EQ(targets, Owners{SnapAction::leftHalf});
}

TEST_F(HotKeyCenterTest, AReceiverMayRegisterAgain) {
  center->onTarget = [this](const ShortcutOwner& owner) {
    targets.push_back(owner);
    use(only({SnapAction::rightHalf}));
  };
  use({});
  press(leftHalfKeys);
  press(rightHalfKeys);
  EXPECT_EQ(targets, (Owners{SnapAction::leftHalf, SnapAction::rightHalf}));
}

TEST_F(HotKeyCenterTest, WhenItGoesItGivesEverythingBack) {
  use({});
  center.reset();
  EXPECT_TRUE(desktop.keyboard.registrations().empty());
  EXPECT_FALSE(desktop.keyboard.hasHandler());
}

TEST_F(HotKeyCenterTest, APressThatStillWaitsWhenItGoesDoesNothing) {
  use({});
  desktop.keyboard.press(leftHalfKeys);
  center.reset();
  desktop.time.runDue();
  EXPECT_TRUE(targets.empty());
}

TEST(HotKeyIds, CountUpByOne) { EXPECT_EQ(HotKeyCenter::idAfter(28), 29); }

TEST(HotKeyIdsDeathTest, RunningOutOfThemEndsTheProgram) {
  EXPECT_DEATH((void)HotKeyCenter::idAfter(std::numeric_limits<std::uint32_t>::max()),
               "^Tilwin: Out of hot-key ids\\.\n$");
}

}  // namespace
}  // namespace tilwin
