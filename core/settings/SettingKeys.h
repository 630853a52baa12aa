#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/settings/TilwinSettings.h"
#include "core/settings/Wording.h"

namespace tilwin {

/// The settings one by one, as `tilwin get` and `tilwin set` name them: the fields of `TilwinSettings` that
/// are switches, distances or lists of texts, and "shortcut.leftHalf" and so on for each action.
struct SettingKeys {
  /// Why a value was not taken, in words for the user.
  struct Refusal {
    std::string reason{};

    bool operator==(const Refusal&) const = default;
  };

  /// Every key, in the order in which they are listed.
  [[nodiscard]] static std::vector<std::string> all();
  /// The value as `changed` takes it. Nothing for an unknown key.
  [[nodiscard]] static std::optional<std::string> text(const TilwinSettings& settings, std::string_view key);
  /// The same as JSON: a number, true or false, an array of texts; a shortcut is a text or null.
  [[nodiscard]] static std::optional<std::string> json(const TilwinSettings& settings, std::string_view key);
  /// The settings with one of them changed. `wording` is for what `ShortcutRules` has to say.
  [[nodiscard]] static std::variant<TilwinSettings, Refusal> changed(const TilwinSettings& settings,
                                                                     std::string_view key,
                                                                     std::string_view value,
                                                                     const Wording& wording = {});
};

}  // namespace tilwin
