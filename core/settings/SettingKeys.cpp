#include "core/settings/SettingKeys.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/settings/HotKeyText.h"
#include "core/settings/ShortcutRules.h"
#include "core/support/JsonCoding.h"
#include "core/support/UnicodeText.h"

namespace tilwin {
namespace {

using Settings = TilwinSettings;
using Refusal = SettingKeys::Refusal;
using Distance = double Settings::*;
using Switch = bool Settings::*;
using List = std::vector<std::string> Settings::*;

constexpr std::string_view shortcutPrefix = "shortcut.";
constexpr std::string_view none = "none";
constexpr std::string_view builtIn = "default";

struct SettingRow {
  std::string_view key;
  std::variant<Distance, Switch, List> member;
};

constexpr std::array rows = std::to_array<SettingRow>({
    {"gap", &Settings::gap},
    {"outer", &Settings::outer},
    {"cycleWidths", &Settings::cycleWidths},
    {"dragToSnap", &Settings::dragToSnap},
    {"shadowRecording", &Settings::shadowRecording},
    {"showMenuBarIcon", &Settings::showMenuBarIcon},
    {"restoreOnDisplayChange", &Settings::restoreOnDisplayChange},
    {"ignoredApps", &Settings::ignoredApps},
});

struct SwitchWord {
  std::string_view word;
  bool value;
};

/// The first for each value is the one that is written.
constexpr std::array switchWords = std::to_array<SwitchWord>({
    {"on", true},
    {"off", false},
    {"true", true},
    {"false", false},
    {"yes", true},
    {"no", false},
});

const SettingRow* rowOf(std::string_view key) {
  const auto* const row = std::ranges::find(rows, key, &SettingRow::key);
  return row == rows.end() ? nullptr : row;
}

std::optional<SnapAction> actionOf(std::string_view key) {
  if (!key.starts_with(shortcutPrefix)) return std::nullopt;
  return SnapActions::fromRawValue(key.substr(shortcutPrefix.size()));
}

struct TextOf {
  const Settings& settings;

  std::string operator()(Distance member) const { return JsonValue::of(settings.*member).text(); }
  std::string operator()(Switch member) const {
    return std::string(std::ranges::find(switchWords, settings.*member, &SwitchWord::value)->word);
  }
  std::string operator()(List member) const {
    std::string text;
    for (const std::string& each : settings.*member) text += (text.empty() ? "" : ", ") + each;
    return text.empty() ? std::string(none) : text;
  }
};

struct JsonOf {
  const Settings& settings;

  template <typename Value>
  std::string operator()(Value Settings::*member) const {
    return JsonCoding<Value>::encode(settings.*member).text();
  }
};

/// Assigns a value that somebody wrote.
struct Assign {
  Settings& settings;
  std::string key;
  std::string_view value;

  std::optional<Refusal> operator()(Distance member) const {
    const auto number = decodeJson<double>(value);
    const auto* const points = std::get_if<double>(&number);
    // Not the other way round, which would let NaN pass.
    if (points == nullptr || !(*points >= 0 && *points <= Settings::largestDistance)) {
      return Refusal{key + " is a number of points from 0 to 64."};
    }
    settings.*member = *points;
    return std::nullopt;
  }
  std::optional<Refusal> operator()(Switch member) const {
    const auto* const word = std::ranges::find(switchWords, UnicodeText::lowerCased(value),
                                               [](const SwitchWord& each) { return each.word; });
    if (word == switchWords.end()) return Refusal{key + " is on or off."};
    settings.*member = word->value;
    return std::nullopt;
  }
  std::optional<Refusal> operator()(List member) const {
    std::vector<std::string> list = elements();
    if (list.size() > Settings::maximumIgnored) {
      return Refusal{"Tilwin leaves up to 100 applications alone."};
    }
    if (std::ranges::any_of(list, [](const auto& each) { return each.size() > Settings::longestIgnored; })) {
      return Refusal{"The names in " + key + " have at most 255 bytes."};
    }
    settings.*member = std::move(list);
    return std::nullopt;
  }

private:
  [[nodiscard]] std::vector<std::string> elements() const {
    std::vector<std::string> list;
    if (value == none) return list;
    for (std::size_t start = 0; start <= value.size();) {
      const auto end = std::min(value.find(',', start), value.size());
      std::string element = UnicodeText::trimmed(value.substr(start, end - start));
      if (!element.empty() && std::ranges::find(list, element) == list.end())
        list.push_back(std::move(element));
      start = end + 1;
    }
    return list;
  }
};

std::optional<Refusal> assignShortcut(Settings& settings, SnapAction action, std::string_view value,
                                      const Wording& wording) {
  if (value == none) {
    settings.clearShortcut(action);
    return std::nullopt;
  }
  if (value == builtIn) {
    settings.resetShortcut(action);
    return std::nullopt;
  }
  const auto spec = HotKeyText::read(value);
  if (!spec) {
    return Refusal{"\"" + std::string(value) +
                   "\" is no shortcut: keys joined by +, such as ctrl+alt+left, or none, or default."};
  }
  const auto problem = settings.assign(*spec, action);
  return problem ? std::optional(Refusal{ShortcutRules::message(*problem, wording)}) : std::nullopt;
}

}  // namespace

std::vector<std::string> SettingKeys::all() {
  std::vector<std::string> keys;
  keys.reserve(rows.size() + SnapActions::all().size());
  for (const SettingRow& row : rows) keys.emplace_back(row.key);
  for (const SnapAction action : SnapActions::all()) {
    keys.push_back(std::string(shortcutPrefix).append(SnapActions::rawValue(action)));
  }
  return keys;
}

std::optional<std::string> SettingKeys::text(const TilwinSettings& settings, std::string_view key) {
  if (const SettingRow* row = rowOf(key)) return std::visit(TextOf{settings}, row->member);
  const auto action = actionOf(key);
  if (!action) return std::nullopt;
  const auto spec = settings.shortcut(*action);
  return spec ? HotKeyText::write(*spec) : std::string(none);
}

std::optional<std::string> SettingKeys::json(const TilwinSettings& settings, std::string_view key) {
  if (const SettingRow* row = rowOf(key)) return std::visit(JsonOf{settings}, row->member);
  const auto action = actionOf(key);
  if (!action) return std::nullopt;
  const auto spec = settings.shortcut(*action);
  return spec ? JsonValue::of(HotKeyText::write(*spec)).text() : std::string("null");
}

std::variant<TilwinSettings, Refusal> SettingKeys::changed(const TilwinSettings& settings,
                                                           std::string_view key, std::string_view value,
                                                           const Wording& wording) {
  TilwinSettings result = settings;
  std::optional<Refusal> refusal = Refusal{"There is no setting \"" + std::string(key) + "\"."};
  if (const SettingRow* row = rowOf(key)) {
    refusal = std::visit(Assign{result, std::string(key), value}, row->member);
  } else if (const auto action = actionOf(key)) {
    refusal = assignShortcut(result, *action, value, wording);
  }
  if (refusal) return *std::move(refusal);
  return result;
}

}  // namespace tilwin
