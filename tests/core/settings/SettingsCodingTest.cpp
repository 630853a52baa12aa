#include "core/settings/SettingsCoding.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <functional>

#include "tests/core/JsonText.h"
#include "tests/core/SettingsFields.h"
#include "tests/printing/Reflection.h"

namespace tilwin {
namespace {

using Kind = JsonError::Kind;

/// An object with these texts as the values of all keys, in the order of the table.
std::string objectOf(const std::function<std::string(const SettingsField&)>& value) {
  std::string text;
  for (const SettingsField& field : settingsFields)
    text += (text.empty() ? "{\"" : ",\"") + field.key + "\":" + value(field);
  return text + "}";
}

std::string presetOf(const SettingsField& field) { return field.preset; }
std::string chosenOf(const SettingsField& field) { return field.chosen; }

TEST(SettingsCoding, TheTableOfTheTestsHasEverySetting) {
  EXPECT_EQ(settingsFields.size(), printing::fieldCount<TilwinSettings>());
  for (const SettingsField& field : settingsFields) {
    EXPECT_EQ(field.json(TilwinSettings()), field.preset) << field.key;
    EXPECT_EQ(field.json(everySettingChosen()), field.chosen) << field.key;
    EXPECT_NE(field.preset, field.chosen) << field.key;
  }
}

TEST(SettingsCoding, AllElevenKeysAreWrittenInTheirOrder) {
  EXPECT_EQ(settingsFields.size(), 11);
  EXPECT_EQ(written(everySettingChosen()), objectOf(chosenOf));
  EXPECT_EQ(written(TilwinSettings()), objectOf(presetOf));
}

TEST(SettingsCoding, WhatIsWrittenIsReadBack) {
  EXPECT_EQ(read<TilwinSettings>(objectOf(chosenOf)), everySettingChosen());
}

TEST(SettingsCoding, AnEmptyObjectIsTheDefaults) { EXPECT_EQ(read<TilwinSettings>("{}"), TilwinSettings()); }

TEST(SettingsCoding, NullAndUnknownKeysCountAsAbsent) {
  EXPECT_EQ(read<TilwinSettings>(R"({"gap":null,"customAreas":null,"cycleWidths":null,"theme":"dark"})"),
            TilwinSettings());
}

TEST(SettingsCoding, OnlyWhatIsNoObjectFailsAsAWhole) {
  for (const char* text : {"[]", "3", "\"{}\"", "true", "null"}) {
    expectError<TilwinSettings>(text, Kind::wrongType, "");
  }
  expectError<TilwinSettings>("{", Kind::notJson, "");
}

TEST(SettingsCoding, ABrokenFieldTakesItsDefaultAndSpoilsNoNeighbour) {
  const auto settings = read<TilwinSettings>(R"({"gap":"wide","outer":8})");
  EXPECT_EQ(settings.gap, 0);
  EXPECT_EQ(settings.outer, 8);
}

TEST(SettingsCoding, AnOverflowingNumberIsABrokenFieldToo) {
  const auto settings = read<TilwinSettings>(R"({"gap":1e999,"outer":8})");
  EXPECT_EQ(settings.gap, 0);
  EXPECT_EQ(settings.outer, 8);
}

TEST(SettingsCoding, EveryFieldSurvivesAllOthersBeingBroken) {
  for (const SettingsField& kept : settingsFields) {
    TilwinSettings alone;
    kept.choose(alone);
    EXPECT_EQ(read<TilwinSettings>(objectOf([&](const SettingsField& field) {
                return field.key == kept.key ? field.chosen : field.broken;
              })),
              alone)
        << kept.key;
  }
}

TEST(SettingsCoding, OneBrokenEntryEmptiesTheWholeCollection) {
  const auto settings = read<TilwinSettings>(
      R"({"outer":8,"shortcuts":{"leftHalf":{"keyCode":1,"modifiers":2},"topLeft":{"keyCode":1}},)"
      R"("disabled":["topLeft",5],"ignoredApps":["org.example.Editor",null]})");
  EXPECT_TRUE(settings.shortcuts.empty());
  EXPECT_TRUE(settings.disabled.empty());
  EXPECT_TRUE(settings.ignoredApps.empty());
  EXPECT_EQ(settings.outer, 8);
}

TEST(SettingsCoding, KeyCodesAreUnsignedWholeNumbersOf32Bits) {
  for (const char* number : {"-1", "4294967296", "1.5", "\"1\"", "1e999"}) {
    const auto text = std::string(R"({"shortcuts":{"leftHalf":{"modifiers":1,"keyCode":)") + number + "}}}";
    EXPECT_TRUE(read<TilwinSettings>(text).shortcuts.empty()) << number;
  }
}

TEST(SettingsCoding, ABrokenAreaDropsOutAlone) {
  constexpr const char* rect = R"("rect":{"x":0,"y":0,"width":1,"height":1})";
  const auto area = [&](const std::string& fields) { return "{" + fields + rect + "}"; };
  const std::string id = R"("id":"01234567-89AB-CDEF-FEDC-BA9876543210",)";
  const auto settings = read<TilwinSettings>(
      R"({"customAreas":[)" + area(id + R"("name":"first",)") + "," + area(id) + ",7,null," +
      area(R"("id":"no id","name":"bad id",)") + "," + area(id + R"("name":"bad keys","shortcut":{},)") +
      "," + area(id + R"("name":"no keys","shortcut":null,)") + "]}");
  ASSERT_EQ(settings.customAreas.size(), 2);
  EXPECT_EQ(settings.customAreas[0].name, "first");
  EXPECT_EQ(settings.customAreas[1].name, "no keys");
}

TEST(SettingsCoding, AreasThatAreNoArrayAreNone) {
  EXPECT_EQ(read<TilwinSettings>(R"({"customAreas":{"id":1}})"), TilwinSettings());
}

TEST(SettingsCoding, NothingIsBroughtIntoRange) {
  const auto settings = read<TilwinSettings>(
      R"({"gap":100,"outer":-3,"customAreas":[{"id":"01234567-89AB-CDEF-FEDC-BA9876543210","name":"",)"
      R"("rect":{"x":0.9,"y":0,"width":3,"height":-1}}]})");
  EXPECT_EQ(settings.gap, 100);
  EXPECT_EQ(settings.outer, -3);
  ASSERT_EQ(settings.customAreas.size(), 1);
  EXPECT_EQ(settings.customAreas[0].rect, (NormalizedRect{0.9, 0, 3, -1}));
}

TEST(SettingsCoding, WhatJsonCannotExpressIsNotWritten) {
  EXPECT_TRUE(std::holds_alternative<JsonError>(encodeJson(TilwinSettings{.gap = HUGE_VAL})));
}

RC_GTEST_PROP(SettingsCodingProperties, ClampedSettingsAreAlwaysWrittenAndReadBackEqual, ()) {
  TilwinSettings settings = arbitrary::settings();
  settings.clamp();
  RC_ASSERT(read<TilwinSettings>(written(settings)) == settings);
}

}  // namespace
}  // namespace tilwin
