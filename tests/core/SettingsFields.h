#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/settings/SettingsCoding.h"
#include "core/settings/TilwinSettings.h"
#include "tests/core/Arbitrary.h"
#include "tests/core/JsonText.h"

namespace tilwin::arbitrary {

/// Any number at all, infinities and NaN included.
inline double anyNumber() { return std::bit_cast<double>(*rc::gen::arbitrary<std::uint64_t>()); }

inline bool flag() { return *rc::gen::arbitrary<bool>(); }

/// Short text of any characters.
inline std::string text() {
  constexpr std::array parts{"a", "\"", "\\", "\n", "é", "⌃", "@", ";", "=", "\t", ",", "\x7f", "😀", " "};
  std::string result;
  for (int count = whole(0, 6); count > 0; --count) {
    result += parts[static_cast<std::size_t>(whole(0, static_cast<int>(parts.size()) - 1))];
  }
  return result;
}

inline HotKeySpec spec() {
  return {*rc::gen::arbitrary<std::uint32_t>(), *rc::gen::arbitrary<std::uint32_t>()};
}

inline CustomArea customArea() {
  CustomArea area{.id = Uuid::random(), .name = text()};
  area.rect = {anyNumber(), anyNumber(), anyNumber(), anyNumber()};
  if (flag()) area.shortcut = spec();
  return area;
}

/// A collection of up to `most` such elements.
template <typename Collection, typename Element>
Collection upTo(int most, Element element) {
  Collection result;
  for (int count = whole(0, most); count > 0; --count) result.insert(result.end(), element());
  return result;
}

template <typename Collection>
Collection texts() {
  return upTo<Collection>(4, text);
}

inline std::map<std::string, HotKeySpec> shortcuts() {
  return upTo<std::map<std::string, HotKeySpec>>(4, [] { return std::pair(text(), spec()); });
}

inline std::vector<CustomArea> customAreas() { return upTo<std::vector<CustomArea>>(15, customArea); }

}  // namespace tilwin::arbitrary

namespace tilwin {

/// One setting, as tests need it that go over all of them.
struct SettingsField {
  std::string key;              ///< its name in JSON, which is that of the member
  std::string preset;           ///< JSON of its default
  std::string chosen;           ///< JSON of another value, which is in range
  std::string broken;           ///< JSON that the field cannot be read from
  bool isAboutHotKeys = false;  ///< whether a change makes hot keys be registered again

  std::function<void(TilwinSettings&)> choose{};  ///< sets the value of `chosen`
  std::function<void(TilwinSettings&)> draw{};    ///< sets any value; for properties
  std::function<void(const TilwinSettings& from, TilwinSettings& to)> copy{};
  std::function<std::string(const TilwinSettings&)> json{};

  /// The same field with what depends on the type of its member.
  template <typename Member>
  [[nodiscard]] SettingsField of(Member TilwinSettings::*member, std::type_identity_t<Member> value,
                                 std::function<Member()> any) && {
    choose = [=](TilwinSettings& settings) { settings.*member = value; };
    draw = [=](TilwinSettings& settings) { settings.*member = any(); };
    copy = [=](const TilwinSettings& from, TilwinSettings& to) { to.*member = from.*member; };
    json = [=](const TilwinSettings& settings) { return written(settings.*member); };
    return std::move(*this);
  }
};

inline std::vector<CustomArea> twoAreas() {
  return {{.id = *Uuid::parse("01234567-89AB-CDEF-FEDC-BA9876543210"),
           .name = "Notes",
           .rect = {0.25, 0, 0.5, 1},
           .shortcut = HotKeySpec{96, 0}},
          {.id = *Uuid::parse("11234567-89AB-CDEF-FEDC-BA9876543210"), .rect = {0, 0, 1, 1}}};
}

/// The one table of all settings, in the order in which they are written. A new setting is a new row here.
// clang-format off
inline const std::vector<SettingsField> settingsFields{
    SettingsField{"gap", "0", "4", "true"}.of<double>(&TilwinSettings::gap, 4, arbitrary::anyNumber),
    SettingsField{"outer", "0", "8.5", "[8]"}.of<double>(&TilwinSettings::outer, 8.5, arbitrary::anyNumber),
    SettingsField{"cycleWidths", "true", "false", "0"}
        .of<bool>(&TilwinSettings::cycleWidths, false, arbitrary::flag),
    SettingsField{"dragToSnap", "true", "false", "\"no\""}
        .of<bool>(&TilwinSettings::dragToSnap, false, arbitrary::flag),
    SettingsField{"shadowRecording", "false", "true", "1"}
        .of<bool>(&TilwinSettings::shadowRecording, true, arbitrary::flag),
    SettingsField{"showMenuBarIcon", "true", "false", "{}"}
        .of<bool>(&TilwinSettings::showMenuBarIcon, false, arbitrary::flag),
    SettingsField{"restoreOnDisplayChange", "true", "false", "[]"}
        .of<bool>(&TilwinSettings::restoreOnDisplayChange, false, arbitrary::flag),
    SettingsField{"shortcuts", "{}", R"({"leftHalf":{"keyCode":0,"modifiers":4096}})", "[]", true}
        .of<std::map<std::string, HotKeySpec>>(
            &TilwinSettings::shortcuts, {{"leftHalf", {0, 4096}}}, arbitrary::shortcuts),
    SettingsField{"disabled", "[]", R"(["restore","topLeft"])", "{}", true}
        .of<std::set<std::string>>(
            &TilwinSettings::disabled, {"topLeft", "restore"}, arbitrary::texts<std::set<std::string>>),
    SettingsField{"ignoredApps", "[]", R"(["org.example.Editor"])", "\"org.example.Editor\""}
        .of<std::vector<std::string>>(
            &TilwinSettings::ignoredApps, {"org.example.Editor"}, arbitrary::texts<std::vector<std::string>>),
    SettingsField{"customAreas", "[]",
                  R"([{"id":"01234567-89AB-CDEF-FEDC-BA9876543210","name":"Notes",)"
                  R"("rect":{"x":0.25,"y":0,"width":0.5,"height":1},"shortcut":{"keyCode":96,"modifiers":0}},)"
                  R"({"id":"11234567-89AB-CDEF-FEDC-BA9876543210","name":"",)"
                  R"("rect":{"x":0,"y":0,"width":1,"height":1}}])", "7", true}
        .of<std::vector<CustomArea>>(&TilwinSettings::customAreas, twoAreas(), arbitrary::customAreas)};
// clang-format on

/// Settings of which none has its default.
inline TilwinSettings everySettingChosen() {
  TilwinSettings settings;
  for (const SettingsField& field : settingsFields) field.choose(settings);
  return settings;
}

namespace arbitrary {

/// Settings as nobody would choose them.
inline TilwinSettings settings() {
  TilwinSettings result;
  for (const SettingsField& field : settingsFields) field.draw(result);
  return result;
}

}  // namespace arbitrary
}  // namespace tilwin
