#include "core/settings/TilwinSettings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <unordered_set>

#include "core/settings/KeyNames.h"
#include "core/settings/ShortcutRules.h"
#include "tests/core/SettingsFields.h"

namespace tilwin {
namespace {

constexpr HotKeySpec override{96, 0};

std::string shown(SnapAction action) {
  const auto spec = TilwinSettings().shortcut(action);
  return spec ? KeyNames::describe(*spec) : "none";
}

TEST(TilwinSettings, AFreshRecordTilesEdgeToEdge) {
  for (const SettingsField& field : settingsFields)
    EXPECT_EQ(field.json(TilwinSettings()), field.preset) << field.key;
}

TEST(DefaultShortcuts, ThereAreTwentyNineAndNoTwoAreTheSame) {
  std::unordered_set<SnapAction> actions;
  std::unordered_set<HotKeySpec> specs;
  for (const auto& row : TilwinSettings::defaults()) {
    actions.insert(row.action);
    specs.insert(row.spec);
  }
  EXPECT_EQ(TilwinSettings::defaults().size(), 29);
  EXPECT_EQ(actions.size(), 29);
  EXPECT_EQ(specs.size(), 29);
}

TEST(DefaultShortcuts, TheSixthsAndTheLargeCentreHaveNone) {
  for (const SnapAction action :
       {SnapAction::topLeftSixth, SnapAction::topCenterSixth, SnapAction::topRightSixth,
        SnapAction::bottomLeftSixth, SnapAction::bottomCenterSixth, SnapAction::bottomRightSixth,
        SnapAction::centerLarge}) {
    EXPECT_EQ(TilwinSettings().shortcut(action), std::nullopt) << SnapActions::rawValue(action);
  }
}

TEST(DefaultShortcuts, AreTheseKeys) {
  const std::vector<std::pair<SnapAction, std::string>> expected{{SnapAction::leftHalf, "⌃⌥←"},
                                                                 {SnapAction::rightHalf, "⌃⌥→"},
                                                                 {SnapAction::topHalf, "⌃⌥↑"},
                                                                 {SnapAction::bottomHalf, "⌃⌥↓"},
                                                                 {SnapAction::topLeft, "⌃⌥U"},
                                                                 {SnapAction::topRight, "⌃⌥I"},
                                                                 {SnapAction::bottomLeft, "⌃⌥J"},
                                                                 {SnapAction::bottomRight, "⌃⌥K"},
                                                                 {SnapAction::leftThird, "⌃⌥D"},
                                                                 {SnapAction::centerThird, "⌃⌥F"},
                                                                 {SnapAction::rightThird, "⌃⌥G"},
                                                                 {SnapAction::leftTwoThirds, "⌃⌥E"},
                                                                 {SnapAction::rightTwoThirds, "⌃⌥T"},
                                                                 {SnapAction::maximize, "⌃⌥↩"},
                                                                 {SnapAction::almostMaximize, "⌃⌥="},
                                                                 {SnapAction::center, "⌃⌥C"},
                                                                 {SnapAction::restore, "⌃⌥⌫"},
                                                                 {SnapAction::nextDisplay, "⌃⌥⌘→"},
                                                                 {SnapAction::previousDisplay, "⌃⌥⌘←"},
                                                                 {SnapAction::firstFourth, "⌃⌥1"},
                                                                 {SnapAction::secondFourth, "⌃⌥2"},
                                                                 {SnapAction::thirdFourth, "⌃⌥3"},
                                                                 {SnapAction::lastFourth, "⌃⌥4"},
                                                                 {SnapAction::leftThreeFourths, "⌃⌥⇧←"},
                                                                 {SnapAction::rightThreeFourths, "⌃⌥⇧→"},
                                                                 {SnapAction::maximizeHeight, "⌃⌥⇧↑"},
                                                                 {SnapAction::maximizeWidth, "⌃⌥⇧↓"},
                                                                 {SnapAction::larger, "⌃⌥⇧="},
                                                                 {SnapAction::smaller, "⌃⌥⇧-"}};
  EXPECT_EQ(expected.size(), 29);
  for (const auto& [action, keys] : expected) EXPECT_EQ(shown(action), keys) << SnapActions::rawValue(action);
}

TEST(ShortcutInForce, IsTheDefaultUnlessTheUserChoseAnother) {
  TilwinSettings settings;
  EXPECT_EQ(settings.shortcut(SnapAction::topLeft), (HotKeySpec{32, 6144}));
  settings.shortcuts["topLeft"] = override;
  EXPECT_EQ(settings.shortcut(SnapAction::topLeft), override);
  EXPECT_EQ(settings.shortcut(SnapAction::topRight), (HotKeySpec{34, 6144}));
}

TEST(ShortcutInForce, IsNoneForADisabledActionEvenWithAnOverride) {
  TilwinSettings settings;
  settings.shortcuts["topLeft"] = override;
  settings.disabled.insert("topLeft");
  EXPECT_EQ(settings.shortcut(SnapAction::topLeft), std::nullopt);
}

TEST(ShortcutInForce, CanBeGivenToAnActionWithoutADefault) {
  TilwinSettings settings;
  EXPECT_EQ(settings.shortcut(SnapAction::centerLarge), std::nullopt);
  settings.shortcuts["centerLarge"] = override;
  EXPECT_EQ(settings.shortcut(SnapAction::centerLarge), override);
}

TEST(ShortcutInForce, AllOfThemAreActionsFirstThenAreasThatHaveOne) {
  TilwinSettings settings;
  for (const SnapAction action : SnapActions::all()) settings.clearShortcut(action);
  settings.resetShortcut(SnapAction::rightHalf);
  settings.resetShortcut(SnapAction::leftHalf);
  settings.customAreas = {CustomArea::starter("silent"), CustomArea::starter("notes")};
  settings.customAreas[1].shortcut = override;
  EXPECT_EQ(settings.shortcutsInForce(),
            (std::vector<std::pair<ShortcutOwner, HotKeySpec>>{{SnapAction::leftHalf, {123, 6144}},
                                                               {SnapAction::rightHalf, {124, 6144}},
                                                               {settings.customAreas[1].id, override}}));
}

TEST(ShortcutOfTheUser, ReplacesTheDefaultUntilItIsReset) {
  TilwinSettings settings;
  EXPECT_FALSE(settings.hasCustomShortcut(SnapAction::topLeft));
  EXPECT_EQ(settings.assign(override, SnapAction::topLeft), std::nullopt);
  EXPECT_TRUE(settings.hasCustomShortcut(SnapAction::topLeft));
  EXPECT_EQ(settings.shortcut(SnapAction::topLeft), override);
  settings.resetShortcut(SnapAction::topLeft);
  EXPECT_EQ(settings, TilwinSettings());
}

TEST(ShortcutOfTheUser, ClearedStaysClearedUntilItIsReset) {
  TilwinSettings settings;
  settings.shortcuts["topLeft"] = override;
  settings.clearShortcut(SnapAction::topLeft);
  EXPECT_EQ(settings.shortcut(SnapAction::topLeft), std::nullopt);
  EXPECT_FALSE(settings.hasCustomShortcut(SnapAction::topLeft));
  EXPECT_EQ(settings.disabled, std::set<std::string>{"topLeft"});
  settings.resetShortcut(SnapAction::topLeft);
  EXPECT_EQ(settings.shortcut(SnapAction::topLeft), (HotKeySpec{32, 6144}));
}

TEST(ShortcutOfTheUser, AssigningEnablesAClearedAction) {
  TilwinSettings settings;
  settings.clearShortcut(SnapAction::topLeft);
  EXPECT_EQ(settings.assign(override, SnapAction::topLeft), std::nullopt);
  EXPECT_EQ(settings.shortcut(SnapAction::topLeft), override);
  EXPECT_TRUE(settings.disabled.empty());
}

TEST(ShortcutOfTheUser, AnOverrideCountsEvenWhenTheActionIsDisabled) {
  TilwinSettings settings;
  settings.disabled.insert("topLeft");
  EXPECT_FALSE(settings.hasCustomShortcut(SnapAction::topLeft));
  settings.shortcuts["topLeft"] = override;
  EXPECT_TRUE(settings.hasCustomShortcut(SnapAction::topLeft));
}

TEST(ShortcutOfTheUser, ARejectedOneChangesNothingAndSaysWhy) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("Notes")};
  settings.clearShortcut(SnapAction::rightHalf);
  const TilwinSettings before = settings;
  const std::optional<ShortcutRules::Problem> used = ShortcutRules::UsedBy{"Left half"};
  EXPECT_EQ(settings.assign({123, 6144}, SnapAction::rightHalf), used);
  EXPECT_EQ(settings.assign({123, 6144}, settings.customAreas[0].id), used);
  EXPECT_EQ(settings, before);
}

TEST(ShortcutOfTheUser, GoesToTheFirstAreaWithTheId) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("other"), CustomArea::starter("first"),
                          CustomArea::starter("second")};
  settings.customAreas[2].id = settings.customAreas[1].id;
  EXPECT_EQ(settings.assign(override, settings.customAreas[1].id), std::nullopt);
  EXPECT_EQ(settings.customAreas[0].shortcut, std::nullopt);
  EXPECT_EQ(settings.customAreas[1].shortcut, override);
  EXPECT_EQ(settings.customAreas[2].shortcut, std::nullopt);
}

TEST(ShortcutOfTheUser, AnIdThatNoAreaHasChangesNothing) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("Notes")};
  const TilwinSettings before = settings;
  EXPECT_EQ(settings.assign(override, Uuid::random()), std::nullopt);
  EXPECT_EQ(settings, before);
}

TEST(HotKeySpec, ModifierBitsAreThoseThatDesktopsRegister) {
  EXPECT_EQ(HotKeySpec::cmd, 256);
  EXPECT_EQ(HotKeySpec::shift, 512);
  EXPECT_EQ(HotKeySpec::option, 2048);
  EXPECT_EQ(HotKeySpec::control, 4096);
}

TEST(ShortcutOwner, ActionsAndAreasAreDifferentKeys) {
  const Uuid area = Uuid::random();
  const std::unordered_set<ShortcutOwner> owners{SnapAction::leftHalf, SnapAction::leftHalf,
                                                 SnapAction::rightHalf, area, Uuid::random()};
  EXPECT_EQ(owners.size(), 4);
  EXPECT_TRUE(owners.contains(area));
}

TEST(CustomArea, ANewOneTakesTheMiddleOfTheScreen) {
  const CustomArea area = CustomArea::starter("Notes");
  EXPECT_EQ(area.name, "Notes");
  EXPECT_EQ(area.rect, (NormalizedRect{0.2, 0, 0.6, 1}));
  EXPECT_EQ(area.shortcut, std::nullopt);
  EXPECT_NE(area.id, CustomArea::starter("Notes").id);
}

TEST(CustomArea, ComparesByAllItsFields) {
  const CustomArea area{.id = Uuid::random(), .name = "Notes", .rect = {0.2, 0, 0.6, 1}};
  CustomArea other = area;
  EXPECT_EQ(area, other);
  other.shortcut = override;
  EXPECT_NE(area, other);
}

}  // namespace
}  // namespace tilwin
