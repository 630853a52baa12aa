#include "app/commands/CommandLists.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "core/geometry/GeometryCoding.h"
#include "core/settings/HotKeyText.h"
#include "core/settings/SettingKeys.h"
#include "core/support/DecimalText.h"
#include "core/support/UnicodeText.h"

namespace tilwin {
namespace {

using Cells = std::vector<std::string>;

/// Titles are other programs' texts: what would end the line or command the terminal becomes a space.
std::string printable(std::string_view text) {
  return UnicodeText::replacingMatches(text, R"([\p{Cc}\s]+)", " ");
}

/// Code points: all but the continuation bytes of UTF-8.
std::size_t lengthOf(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char each) { return (static_cast<unsigned char>(each) & 0xC0U) != 0x80U; }));
}

/// Columns are as wide as their widest cell; the last has no end.
std::string table(std::vector<Cells> rows) {
  std::vector<std::size_t> widths;
  for (Cells& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column) {
      row[column] = printable(row[column]);
      widths[column] = std::max(widths[column], lengthOf(row[column]));
    }
  }
  std::string text;
  for (const Cells& row : rows) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column) {
      line += row[column] + std::string(widths[column] - lengthOf(row[column]) + 2, ' ');
    }
    text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  return text;
}

std::string lineOf(const JsonValue& value) { return value.text() + "\n"; }

std::string geometry(const Rect& frame) {
  const auto signedText = [](double number) { return (number < 0 ? "" : "+") + decimalText(number, 0); };
  return decimalText(frame.width, 0) + "x" + decimalText(frame.height, 0) + signedText(frame.x) +
         signedText(frame.y);
}

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
  std::vector<Cells> rows;
  for (const WindowInfo& window : windows) {
    const bool hasFocus = focused && focused->id == window.id;
    const auto display = displayIndex(window, ordered);
    if (asJson) array.append(windowJson(window, hasFocus, display));
    rows.push_back({hasFocus             ? "*"
                    : window.isMinimized ? "-"
                                         : "",
                    geometry(window.frame), window.bundleID.empty() ? window.appName : window.bundleID,
                    window.title});
  }
  return asJson ? lineOf(array) : table(std::move(rows));
}

std::string CommandLists::displays(const std::vector<DisplayInfo>& displays, bool asJson) {
  JsonValue array = JsonValue::array();
  std::vector<Cells> rows;
  std::int64_t index = 0;
  for (const DisplayInfo& display : DisplayOrder::sorted(displays)) {
    JsonValue object = JsonValue::object();
    object.set("index", JsonValue::of(index));
    object.set("frame", JsonCoding<Rect>::encode(display.frame));
    object.set("visibleFrame", JsonCoding<Rect>::encode(display.visibleFrame));
    object.set("isPrimary", JsonValue::of(display.isPrimary));
    array.append(std::move(object));
    rows.push_back({std::to_string(index), geometry(display.frame), "free " + geometry(display.visibleFrame),
                    display.isPrimary ? "primary" : ""});
    ++index;
  }
  return asJson ? lineOf(array) : table(std::move(rows));
}

std::string CommandLists::actions(const TilwinSettings& settings, bool asJson) {
  JsonValue array = JsonValue::array();
  std::vector<Cells> rows;
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
  return asJson ? lineOf(array) : table(std::move(rows));
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
