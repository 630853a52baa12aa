#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/settings/TilwinSettings.h"

namespace tilwin {

/// The part of the settings that determines the hot keys. While it is equal, they need not be registered
/// again.
struct HotKeyFingerprint {
  struct Area {
    Uuid id{};
    std::optional<HotKeySpec> shortcut{};

    bool operator==(const Area&) const = default;
  };

  std::map<std::string, HotKeySpec> shortcuts{};
  std::set<std::string> disabled{};
  std::vector<Area> areas{};

  bool operator==(const HotKeyFingerprint&) const = default;

  [[nodiscard]] static HotKeyFingerprint of(const TilwinSettings& settings) {
    HotKeyFingerprint result{.shortcuts = settings.shortcuts, .disabled = settings.disabled};
    for (const CustomArea& area : settings.customAreas) result.areas.push_back({area.id, area.shortcut});
    return result;
  }
};

}  // namespace tilwin
