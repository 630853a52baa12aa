#include "core/settings/SettingsCoding.h"

#include <utility>

namespace tilwin {
namespace {

using Settings = TilwinSettings;

// clang-format off
constexpr auto fields = std::make_tuple(
    JsonField{"gap", &Settings::gap},
    JsonField{"outer", &Settings::outer},
    JsonField{"cycleWidths", &Settings::cycleWidths},
    JsonField{"dragToSnap", &Settings::dragToSnap},
    JsonField{"shadowRecording", &Settings::shadowRecording},
    JsonField{"showMenuBarIcon", &Settings::showMenuBarIcon},
    JsonField{"restoreOnDisplayChange", &Settings::restoreOnDisplayChange},
    JsonField{"shortcuts", &Settings::shortcuts},
    JsonField{"disabled", &Settings::disabled},
    JsonField{"ignoredApps", &Settings::ignoredApps},
    JsonField{"customAreas", &Settings::customAreas});
// clang-format on

template <typename Member>
void decode(const JsonReader& reader, Member& member) {
  member = JsonCoding<Member>::decode(reader);
}

void decode(const JsonReader& reader, std::vector<CustomArea>& areas) {
  for (auto& element : JsonCoding<std::vector<Lossy<CustomArea>>>::decode(reader)) {
    if (element.value) areas.push_back(*std::move(element.value));
  }
}

template <typename Member>
void take(const JsonReader& reader, const JsonField<Settings, Member>& field, Settings& settings) {
  const auto found = reader.find(field.key);
  if (!found) return;
  try {
    decode(*found, settings.*field.member);
  } catch (const JsonError&) {
    // The member was not assigned, so it keeps its default.
  }
}

}  // namespace

Settings JsonCoding<Settings>::decode(const JsonReader& reader) {
  if (!reader.isObject()) reader.fail(JsonError::Kind::wrongType, "an object expected");
  Settings settings;
  std::apply([&](const auto&... field) { (take(reader, field, settings), ...); }, fields);
  return settings;
}

JsonValue JsonCoding<Settings>::encode(const Settings& settings) {
  JsonValue object = JsonValue::object();
  const auto put = [&]<typename Member>(const JsonField<Settings, Member>& field) {
    object.set(field.key, JsonCoding<Member>::encode(settings.*field.member));
  };
  std::apply([&](const auto&... field) { (put(field), ...); }, fields);
  return object;
}

}  // namespace tilwin
