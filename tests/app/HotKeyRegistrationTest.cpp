#include <limits>

#include "tests/app/HotKeyCenterFixture.h"

namespace tilwin {
namespace {

constexpr std::uint32_t signature = 0x54574631;  // "TWF1"

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

TEST_F(HotKeyCenterTest, WhenItGoesItGivesEverythingBack) {
  use({});
  center.reset();
  EXPECT_TRUE(desktop.keyboard.registrations().empty());
  EXPECT_FALSE(desktop.keyboard.hasHandler());
}

TEST(HotKeyIds, CountUpByOne) { EXPECT_EQ(HotKeyCenter::idAfter(28), 29); }

TEST(HotKeyIdsDeathTest, RunningOutOfThemEndsTheProgram) {
  EXPECT_DEATH((void)HotKeyCenter::idAfter(std::numeric_limits<std::uint32_t>::max()),
               "^Tilwin: Out of hot-key ids\\.\n$");
}

}  // namespace
}  // namespace tilwin
