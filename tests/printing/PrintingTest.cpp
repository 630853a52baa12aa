#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/drag/ShadowSummary.h"
#include "core/layouts/Layout.h"
#include "core/settings/TilwinSettings.h"
#include "core/support/JsonError.h"

namespace tilwin {
namespace {

enum class Mood { calm = 1, busy };

struct Visit {
  int minute = 0;
  std::optional<std::string> guest{};
  Mood mood = Mood::calm;
};

class Visitor {
public:
  Visitor() = default;
  Visitor(const Visitor&) = delete;
  Visitor& operator=(const Visitor&) = delete;
  virtual ~Visitor() = default;
};

TEST(Printing, AStructPrintsItsFieldsByName) {
  EXPECT_EQ(testing::PrintToString(Visit{7, "Ann", Mood::busy}),
            R"({minute: 7, guest: ("Ann"), mood: busy})");
}

TEST(Printing, AnEnumerationPrintsTheNameOfItsCaseAndElseItsNumber) {
  EXPECT_EQ(testing::PrintToString(Mood::calm), "calm");
  EXPECT_EQ(testing::PrintToString(static_cast<Mood>(0)), "0");
  EXPECT_EQ(testing::PrintToString(static_cast<Mood>(-3)), "-3");
  EXPECT_EQ(testing::PrintToString(static_cast<Mood>(4000)), "4000");
  EXPECT_EQ(testing::PrintToString(JsonError::Kind::badValue), "badValue");
}

TEST(Printing, PropertiesShowWhatExpectationsPrint) {
  EXPECT_EQ(rc::toString(Visit{7, "Ann", Mood::busy}), R"({minute: 7, guest: ("Ann"), mood: busy})");
  EXPECT_EQ(rc::toString(std::optional(Mood::busy)), "(busy)");
  EXPECT_EQ(rc::toString(std::vector{Mood::calm, Mood::busy}), "[calm, busy]");
  EXPECT_EQ(rc::toString(ShortcutOwner{SnapAction::leftHalf}),
            "('tilwin::SnapAction(index = 0)' with value leftHalf)");
}

TEST(Printing, SettingsPrintEveryFieldByName) {
  TilwinSettings settings{.gap = 8};
  settings.shortcuts["leftHalf"] = {123, HotKeySpec::control | HotKeySpec::option};
  settings.customAreas = {{.name = "Desk", .rect = {0.25, 0, 0.5, 1}}};
  EXPECT_EQ(testing::PrintToString(settings),
            "{gap: 8, outer: 0, cycleWidths: true, dragToSnap: true, shadowRecording: false, "
            "showMenuBarIcon: true, restoreOnDisplayChange: true, "
            "shortcuts: { (\"leftHalf\", ⌃⌥← (key 123, modifiers 6144)) }, disabled: {}, ignoredApps: {}, "
            "customAreas: { {id: 00000000-0000-0000-0000-000000000000, name: \"Desk\", "
            "rect: 0.5x1 at 0.25,0, shortcut: (nullopt)} }}");
}

TEST(Printing, TheAlternativeOfAVariantPrintsItsTypeAndValue) {
  EXPECT_EQ(testing::PrintToString(SlotTarget{GridRegion{2, 1, 1, 0, 1, 1}}),
            "('tilwin::GridRegion(index = 0)' with value 1x1 cells at 1,0 of 2x1)");
  EXPECT_EQ(testing::PrintToString(ShadowSummary{.candidates = 3}.verdict()),
            "('tilwin::ShadowSummary::NotEnoughDrags(index = 0)' with value {have: 3, need: 50})");
}

TEST(Printing, MomentsPrintAsText) {
  EXPECT_EQ(testing::PrintToString(Date(std::chrono::seconds(1'000'000))), "1970-01-12T13:46:40Z");
  EXPECT_EQ(testing::PrintToString(Date(std::chrono::microseconds(1'000'001))),
            "1970-01-01T00:00:01Z and 1e-06 s");
}

TEST(Printing, AnErrorPrintsItsMessageAndAnObjectItsType) {
  EXPECT_EQ(testing::PrintToString(JsonError(JsonError::Kind::badValue, "slots.2", "too large")),
            "slots.2: too large");
  EXPECT_EQ(testing::PrintToString(Visitor()), "a tilwin::(anonymous namespace)::Visitor");
}

}  // namespace
}  // namespace tilwin
