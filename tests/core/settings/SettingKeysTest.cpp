#include "core/settings/SettingKeys.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>

namespace tilwin {
namespace {

std::string refusalOf(std::string_view key, std::string_view value, const TilwinSettings& settings = {}) {
  const auto result = SettingKeys::changed(settings, key, value);
  const auto* refusal = std::get_if<SettingKeys::Refusal>(&result);
  return refusal == nullptr ? "taken" : refusal->reason;
}

TilwinSettings with(std::string_view key, std::string_view value, const TilwinSettings& settings = {}) {
  const auto result = SettingKeys::changed(settings, key, value);
  EXPECT_TRUE(std::holds_alternative<TilwinSettings>(result)) << key << " " << value;
  return std::holds_alternative<TilwinSettings>(result) ? std::get<TilwinSettings>(result) : settings;
}

TEST(SettingKeys, EachIsReadAndTakesWhatIsRead) {
  TilwinSettings settings;
  settings.gap = 8.5;
  settings.cycleWidths = false;
  settings.ignoredApps = {"org.gimp", "mpv"};
  settings.clearShortcut(SnapAction::leftHalf);
  settings.shortcuts["centerLarge"] = {96, 0};
  EXPECT_EQ(SettingKeys::all().size(), 8U + 36U);
  for (const std::string& key : SettingKeys::all()) {
    const auto text = SettingKeys::text(settings, key);
    ASSERT_TRUE(text) << key;
    const auto again = SettingKeys::changed(settings, key, *text);
    ASSERT_TRUE(std::holds_alternative<TilwinSettings>(again)) << key << " " << *text;
    EXPECT_EQ(SettingKeys::text(std::get<TilwinSettings>(again), key), text) << key;
  }
}

TEST(SettingKeys, AreWrittenForPeopleAndForPrograms) {
  TilwinSettings settings;
  settings.gap = 8.5;
  settings.ignoredApps = {"org.gimp", "mpv"};
  EXPECT_EQ(SettingKeys::text(settings, "gap"), "8.5");
  EXPECT_EQ(SettingKeys::text(settings, "dragToSnap"), "on");
  EXPECT_EQ(SettingKeys::text(settings, "shadowRecording"), "off");
  EXPECT_EQ(SettingKeys::text(settings, "ignoredApps"), "org.gimp, mpv");
  EXPECT_EQ(SettingKeys::text(settings, "shortcut.leftHalf"), "ctrl+alt+left");
  EXPECT_EQ(SettingKeys::text(settings, "shortcut.centerLarge"), "none");
  EXPECT_EQ(SettingKeys::json(settings, "gap"), "8.5");
  EXPECT_EQ(SettingKeys::json(settings, "dragToSnap"), "true");
  EXPECT_EQ(SettingKeys::json(settings, "ignoredApps"), R"(["org.gimp","mpv"])");
  EXPECT_EQ(SettingKeys::json(settings, "shortcut.leftHalf"), R"("ctrl+alt+left")");
  EXPECT_EQ(SettingKeys::json(settings, "shortcut.centerLarge"), "null");
}

TEST(SettingKeys, OthersThereAreNone) {
  EXPECT_EQ(SettingKeys::text({}, "gaps"), std::nullopt);
  EXPECT_EQ(SettingKeys::json({}, "shortcut.leftHlaf"), std::nullopt);
  EXPECT_EQ(refusalOf("gaps", "1"), "There is no setting \"gaps\".");
}

TEST(SettingKeys, DistancesAreFromZeroTo64Points) {
  EXPECT_EQ(with("gap", "0").gap, 0);
  EXPECT_EQ(with("outer", "64").outer, 64);
  for (const char* value : {"-1", "64.1", "wide", "", "1,5", "nan", "1e999", "true"}) {
    EXPECT_EQ(refusalOf("gap", value), "gap is a number of points from 0 to 64.") << value;
  }
}

TEST(SettingKeys, SwitchesAreOnOrOff) {
  EXPECT_FALSE(with("cycleWidths", "off").cycleWidths);
  EXPECT_FALSE(with("cycleWidths", "False").cycleWidths);
  EXPECT_TRUE(with("shadowRecording", "yes").shadowRecording);
  EXPECT_EQ(refusalOf("cycleWidths", "maybe"), "cycleWidths is on or off.");
}

TEST(SettingKeys, ProgramsAreListedWithCommas) {
  using List = std::vector<std::string>;
  EXPECT_EQ(with("ignoredApps", " mpv ,org.gimp,, mpv").ignoredApps, (List{"mpv", "org.gimp"}));
  EXPECT_EQ(with("ignoredApps", "none").ignoredApps, List());
  EXPECT_EQ(with("ignoredApps", "").ignoredApps, List());
}

TEST(SettingKeys, ProgramsAreNoMoreAndNoLongerThanTheMenuAdds) {
  std::string hundred;
  for (int number = 0; number < 100; ++number) hundred += "app" + std::to_string(number) + ",";
  EXPECT_EQ(with("ignoredApps", hundred).ignoredApps.size(), 100U);
  EXPECT_EQ(refusalOf("ignoredApps", hundred + "one more"), "Tilwin leaves up to 100 applications alone.");
  EXPECT_EQ(refusalOf("ignoredApps", std::string(256, 'x')),
            "The names in ignoredApps have at most 255 bytes.");
}

TEST(SettingKeys, AShortcutFollowsTheRulesOfTheSettingsWindow) {
  EXPECT_EQ(with("shortcut.leftHalf", "ctrl+alt+h").shortcut(SnapAction::leftHalf),
            (HotKeySpec{4, HotKeySpec::control | HotKeySpec::option}));
  const HotKeySpec right{124, HotKeySpec::control | HotKeySpec::option};
  EXPECT_EQ(refusalOf("shortcut.leftHalf", "ctrl+alt+right"),
            ShortcutRules::message(*ShortcutRules::problem(right, SnapAction::leftHalf, {})));
  EXPECT_NE(refusalOf("shortcut.leftHalf", "a"), "taken");
}

TEST(SettingKeys, AShortcutCanBeTakenAwayAndGivenBack) {
  const auto without = with("shortcut.leftHalf", "none");
  EXPECT_EQ(without.shortcut(SnapAction::leftHalf), std::nullopt);
  EXPECT_EQ(with("shortcut.leftHalf", "default", without), TilwinSettings());
}

TEST(SettingKeys, WhatIsNoShortcutIsNotTaken) {
  EXPECT_EQ(refusalOf("shortcut.leftHalf", "hyper+x"),
            "\"hyper+x\" is no shortcut: keys joined by +, such as ctrl+alt+left, or none, or default.");
}

}  // namespace
}  // namespace tilwin
