#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "app/keys/HotKeyCenter.h"
#include "platform/simulated/SimulatedDesktop.h"

namespace tilwin {

/// Where windows stand before anything moves them.
inline constexpr Rect untouched{100, 100, 800, 600};

inline constexpr HotKeySpec leftHalfKeys{123, 6144};
inline constexpr HotKeySpec rightHalfKeys{124, 6144};
inline constexpr HotKeySpec topHalfKeys{126, 6144};
inline constexpr HotKeySpec areaKeys{96, 4096};

/// Settings in which only these actions have shortcuts.
inline TilwinSettings only(std::initializer_list<SnapAction> actions) {
  TilwinSettings settings;
  for (const SnapAction action : SnapActions::all()) {
    const bool kept = std::find(actions.begin(), actions.end(), action) != actions.end();
    if (!kept) settings.disabled.insert(std::string(SnapActions::rawValue(action)));
  }
  return settings;
}

inline CustomArea area(const std::string& name, std::optional<HotKeySpec> shortcut) {
  return {.id = Uuid::random(), .name = name, .shortcut = shortcut};
}

/// A `HotKeyCenter` on a simulated desktop, and what it reports.
struct HotKeyCenterTest : testing::Test {
  HotKeyCenterTest() { listen(); }

  void listen() {
    center->onTarget = [this](const ShortcutOwner& owner) { targets.push_back(owner); };
  }
  HotKeyCenter::OwnerSet use(const TilwinSettings& settings) { return center->registerShortcuts(settings); }
  /// Presses the keys and runs the main queue.
  void press(const HotKeySpec& spec) {
    desktop.keyboard.press(spec);
    desktop.time.runDue();
  }
  std::vector<std::uint32_t> ids() const {
    std::vector<std::uint32_t> result;
    for (const auto& each : desktop.keyboard.registrations()) result.push_back(each.identity.id);
    return result;
  }

  SimulatedDesktop desktop;
  std::optional<HotKeyCenter> center{std::in_place, desktop.hotKeys(), desktop.mainQueue()};
  std::vector<ShortcutOwner> targets;
};

using Owners = std::vector<ShortcutOwner>;

}  // namespace tilwin
