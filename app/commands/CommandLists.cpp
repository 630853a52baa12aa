#include "app/commands/CommandLists.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "core/geometry/GeometryCoding.h"
#include "core/geometry/GeometryText.h"
#include "core/settings/HotKeyText.h"
#include "core/settings/SettingKeys.h"
#include "core/support/TextTable.h"

namespace tilwin {
namespace {

std::string lineOf(const JsonValue& value) { return value.text() + "\n"; }

/// The index of the display in `DisplayOrder`, as layouts count; 0 without displays.
std::int64_t displayIndex(const WindowInfo& window, const std::vector<DisplayInfo>& ordered) {
  const DisplayInfo* const display = DisplayInfo::covering(window.frame, ordered);
  return display == nullptr ? 0 : display - ordered.data();
}

JsonValue windowJson(const WindowInfo& window, bool hasFocus, std::int64_t display) {
  JsonValue object = JsonValue::object();
  object.set("window", JsonValue::of(window.id));
  object.set("application", JsonValue::of(std::string_view(window.bundleID)));
  object.set("name", JsonValue::of(std::string_view(window.appName)));
  object.set("title", JsonValue::of(std::string_view(window.title)));
  object.set("frame", JsonCoding<Rect>::encode(window.frame));
  object.set("display", JsonValue::of(display));
  object.set("isFocused", JsonValue::of(hasFocus));
  object.set("isMinimized", JsonValue::of(window.isMinimized));
  return object;
}

std::string shortcutOf(const TilwinSettings& settings, SnapAction action) {
  const auto spec = settings.shortcut(action);
  return spec ? HotKeyText::write(*spec) : std::string();
}

}  // namespace

std::string CommandLists::windows(const std::vector<WindowInfo>& windows,
                                  const std::optional<WindowInfo>& focused,
                                  const std::vector<DisplayInfo>& displays, bool asJson) {
  const auto ordered = DisplayOrder::sorted(displays);
  JsonValue array = JsonValue::array();
  std::vector<TableRow> rows;
  for (const WindowInfo& window : windows) {
    const bool hasFocus = focused && focused->id == window.id;
    const auto display = displayIndex(window, ordered);
    if (asJson) array.append(windowJson(window, hasFocus, display));
    rows.push_back({hasFocus             ? "*"
                    : window.isMinimized ? "-"
                                         : "",
                    geometryText(window.frame), window.bundleID.empty() ? window.appName : window.bundleID,
                    window.title});
  }
  return asJson ? lineOf(array) : textTable(std::move(rows));
}

std::string CommandLists::displays(const std::vector<DisplayInfo>& displays, bool asJson) {
  JsonValue array = JsonValue::array();
  std::vector<TableRow> rows;
  std::int64_t index = 0;
  for (const DisplayInfo& display : DisplayOrder::sorted(displays)) {
    JsonValue object = JsonValue::object();
    object.set("index", JsonValue::of(index));
    object.set("frame", JsonCoding<Rect>::encode(display.frame));
    object.set("visibleFrame", JsonCoding<Rect>::encode(display.visibleFrame));
    object.set("isPrimary", JsonValue::of(display.isPrimary));
    array.append(std::move(object));
    rows.push_back({std::to_string(index), geometryText(display.frame),
                    "free " + geometryText(display.visibleFrame), display.isPrimary ? "primary" : ""});
    ++index;
  }
  return asJson ? lineOf(array) : textTable(std::move(rows));
}

std::string CommandLists::actions(const TilwinSettings& settings, bool asJson) {
  JsonValue array = JsonValue::array();
  std::vector<TableRow> rows;
  for (const SnapAction action : SnapActions::all()) {
    const std::string shortcut = shortcutOf(settings, action);
    JsonValue object = JsonValue::object();
    object.set("action", JsonValue::of(SnapActions::rawValue(action)));
    object.set("title", JsonValue::of(SnapActions::title(action)));
    if (!shortcut.empty()) object.set("shortcut", JsonValue::of(std::string_view(shortcut)));
    array.append(std::move(object));
    rows.push_back(
        {std::string(SnapActions::rawValue(action)), shortcut, std::string(SnapActions::title(action))});
  }
  return asJson ? lineOf(array) : textTable(std::move(rows));
}

std::string CommandLists::areas(const std::vector<CustomArea>& areas, bool asJson) {
  JsonValue array = JsonValue::array();
  std::string text;
  for (const CustomArea& area : areas) {
    JsonValue object = JsonValue::object();
    object.set("name", JsonValue::of(std::string_view(area.name)));
    object.set("rect", JsonCoding<NormalizedRect>::encode(area.rect));
    if (area.shortcut)
      object.set("shortcut", JsonValue::of(std::string_view(HotKeyText::write(*area.shortcut))));
    array.append(std::move(object));
    text += printable(area.name) + "\n";
  }
  return asJson ? lineOf(array) : text;
}

std::string CommandLists::layouts(const std::vector<Layout>& layouts, bool asJson) {
  JsonValue array = JsonValue::array();
  std::string text;
  for (const Layout& layout : layouts) {
    JsonValue object = JsonValue::object();
    object.set("name", JsonValue::of(std::string_view(layout.name)));
    object.set("windows", JsonValue::of(static_cast<std::int64_t>(layout.slots.size())));
    object.set("updatedAt", JsonCoding<Date>::encode(layout.updatedAt));
    array.append(std::move(object));
    text += printable(layout.name) + "\n";
  }
  return asJson ? lineOf(array) : text;
}

std::string CommandLists::settings(const TilwinSettings& settings, bool asJson) {
  std::string text;
  std::string json;
  for (const std::string& key : SettingKeys::all()) {
    text += key + " " + SettingKeys::text(settings, key).value_or("") + "\n";
    json += (json.empty() ? "{\"" : ",\"") + key + "\":" + SettingKeys::json(settings, key).value_or("null");
  }
  return asJson ? json + "}\n" : text;
}

}  // namespace tilwin
