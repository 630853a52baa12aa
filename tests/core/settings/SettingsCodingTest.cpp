#include "core/settings/SettingsCoding.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "tests/core/ArbitrarySettings.h"
#include "tests/core/JsonText.h"

namespace tilwin {
namespace {

using Kind = JsonError::Kind;

constexpr const char* allKeys =
    R"({"gap":4,"outer":8.5,"cycleWidths":false,"dragToSnap":false,"shadowRecording":true,)"
    R"("showMenuBarIcon":false,"restoreOnDisplayChange":false,)"
    R"("shortcuts":{"leftHalf":{"keyCode":0,"modifiers":4096}},"disabled":["restore","topLeft"],)"
    R"("ignoredApps":["org.example.Editor"],"customAreas":[)"
    R"({"id":"01234567-89AB-CDEF-FEDC-BA9876543210","name":"Notes",)"
    R"("rect":{"x":0.25,"y":0,"width":0.5,"height":1},"shortcut":{"keyCode":96,"modifiers":0}},)"
    R"({"id":"11234567-89AB-CDEF-FEDC-BA9876543210","name":"","rect":{"x":0,"y":0,"width":1,"height":1}}]})";

TilwinSettings allChosen() {
  TilwinSettings settings{.gap = 4,
                          .outer = 8.5,
                          .cycleWidths = false,
                          .dragToSnap = false,
                          .shadowRecording = true,
                          .showMenuBarIcon = false,
                          .restoreOnDisplayChange = false};
  settings.shortcuts["leftHalf"] = {0, 4096};
  settings.disabled = {"topLeft", "restore"};
  settings.ignoredApps = {"org.example.Editor"};
  settings.customAreas = {{.id = *Uuid::parse("01234567-89AB-CDEF-FEDC-BA9876543210"),
                           .name = "Notes",
                           .rect = {0.25, 0, 0.5, 1},
                           .shortcut = HotKeySpec{96, 0}},
                          {.id = *Uuid::parse("11234567-89AB-CDEF-FEDC-BA9876543210"), .rect = {0, 0, 1, 1}}};
  return settings;
}

TEST(SettingsCoding, AllElevenKeysAreWrittenInTheirOrder) {
  EXPECT_EQ(written(allChosen()), allKeys);
  EXPECT_EQ(written(TilwinSettings()),
            R"({"gap":0,"outer":0,"cycleWidths":true,"dragToSnap":true,"shadowRecording":false,)"
            R"("showMenuBarIcon":true,"restoreOnDisplayChange":true,"shortcuts":{},"disabled":[],)"
            R"("ignoredApps":[],"customAreas":[]})");
}

TEST(SettingsCoding, WhatIsWrittenIsReadBack) { EXPECT_EQ(read<TilwinSettings>(allKeys), allChosen()); }

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
  struct Field {
    std::string key;
    std::string good;
    std::string broken;
  };
  const std::vector<Field> fields{
      {"gap", "4", "true"},
      {"outer", "8.5", "[8]"},
      {"cycleWidths", "false", "0"},
      {"dragToSnap", "false", "\"no\""},
      {"shadowRecording", "true", "1"},
      {"showMenuBarIcon", "false", "{}"},
      {"restoreOnDisplayChange", "false", "[]"},
      {"shortcuts", R"({"leftHalf":{"keyCode":0,"modifiers":4096}})", "[]"},
      {"disabled", R"(["restore"])", "{}"},
      {"ignoredApps", R"(["org.example.Editor"])", "\"org.example.Editor\""},
      {"customAreas",
       R"([{"id":"01234567-89AB-CDEF-FEDC-BA9876543210","name":"","rect":{"x":0,"y":0,"width":1,"height":1}}])",
       "7"}};
  EXPECT_EQ(fields.size(), 11);
  const auto member = [](const std::string& key, const std::string& value) {
    return "\"" + key + "\":" + value;
  };
  for (const Field& kept : fields) {
    std::string text;
    for (const Field& field : fields) {
      text += (text.empty() ? "{" : ",") + member(field.key, &field == &kept ? field.good : field.broken);
    }
    const auto alone = read<TilwinSettings>("{" + member(kept.key, kept.good) + "}");
    EXPECT_NE(alone, TilwinSettings()) << kept.key;
    EXPECT_EQ(read<TilwinSettings>(text + "}"), alone) << kept.key;
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
