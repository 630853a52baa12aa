#include "app/commands/EventLines.h"

#include <optional>
#include <string_view>
#include <utility>

#include "app/commands/CommandLists.h"
#include "core/settings/SettingKeys.h"
#include "core/support/JsonValue.h"

namespace tilwin {
namespace {

JsonValue event(std::string_view kind) {
  JsonValue object = JsonValue::object();
  object.set("event", JsonValue::of(kind));
  return object;
}

/// With a last member that is JSON already.
std::string lineWith(const JsonValue& object, std::string_view key, std::string json) {
  while (json.ends_with('\n')) json.pop_back();
  std::string line = object.text();
  line.pop_back();
  return line.append(",\"").append(key).append("\":").append(json).append("}");
}

std::string settingLine(std::string_view key, std::string json) {
  JsonValue object = event("setting");
  object.set("key", JsonValue::of(key));
  return lineWith(object, "value", std::move(json));
}

}  // namespace

std::string EventLines::snapped(std::int64_t window, SnapAction action) {
  JsonValue object = event("snap");
  object.set("window", JsonValue::of(window));
  object.set("action", JsonValue::of(SnapActions::rawValue(action)));
  return object.text();
}

std::string EventLines::snapped(std::int64_t window, const CustomArea& area) {
  JsonValue object = event("snap");
  object.set("window", JsonValue::of(window));
  object.set("area", JsonValue::of(std::string_view(area.name)));
  return object.text();
}

std::string EventLines::layout(LayoutChange change, const Layout& layout) {
  JsonValue object = event("layout");
  object.set("change", JsonValue::of(nameOf(change)));
  object.set("name", JsonValue::of(std::string_view(layout.name)));
  object.set("isAutomatic", JsonValue::of(layout.isAutomatic));
  return object.text();
}

std::string EventLines::displays(const std::vector<DisplayInfo>& displays) {
  return lineWith(event("displays"), "displays", CommandLists::displays(displays, true));
}

std::vector<std::string> EventLines::settings(const TilwinSettings& before, const TilwinSettings& after) {
  std::vector<std::string> lines;
  for (const std::string& key : SettingKeys::all()) {
    auto value = SettingKeys::json(after, key);
    if (value && value != SettingKeys::json(before, key))
      lines.push_back(settingLine(key, *std::move(value)));
  }
  if (before.customAreas != after.customAreas) {
    lines.push_back(settingLine("customAreas", CommandLists::areas(after.customAreas, true)));
  }
  return lines;
}

}  // namespace tilwin
