#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/settings/CustomArea.h"
#include "core/settings/HotKeySpec.h"
#include "core/settings/ShortcutRules.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// The user's settings. `shortcuts` contains only changes from the built-in ones, so that a new built-in
/// shortcut reaches every user who has not changed that action.
struct TilwinSettings {
  struct DefaultShortcut {
    SnapAction action = SnapAction::leftHalf;
    HotKeySpec spec{};
  };

  static constexpr double largestDistance = 64;  ///< points, of `gap` and `outer`
  static constexpr std::size_t maximumAreas = 12;
  static constexpr std::size_t maximumIgnored = 100;  ///< applications that the menu adds to `ignoredApps`
  static constexpr std::size_t longestIgnored = 255;  ///< bytes of a bundle identifier that it adds

  double gap = 0;    ///< points between tiled windows
  double outer = 0;  ///< points around the edge of the screen
  bool cycleWidths = true;
  bool dragToSnap = true;
  bool shadowRecording = false;
  bool showMenuBarIcon = true;
  bool restoreOnDisplayChange = true;
  std::map<std::string, HotKeySpec> shortcuts{};  ///< overrides, by the action's raw value
  std::set<std::string> disabled{};               ///< raw values of actions whose shortcut the user removed
  std::vector<std::string> ignoredApps{};         ///< bundle identifiers
  std::vector<CustomArea> customAreas{};

  bool operator==(const TilwinSettings&) const = default;

  /// The built-in shortcuts; an action without a row has none.
  [[nodiscard]] static std::span<const DefaultShortcut> defaults();
  /// The effective shortcut: none if disabled, else the override, else the built-in one.
  [[nodiscard]] std::optional<HotKeySpec> shortcut(SnapAction action) const;
  /// The same for an action or an area; none for an unknown area id.
  [[nodiscard]] std::optional<HotKeySpec> shortcut(const ShortcutOwner& owner) const;
  /// All effective shortcuts and what they trigger: first actions, then areas, each in their order.
  [[nodiscard]] std::vector<std::pair<ShortcutOwner, HotKeySpec>> shortcutsInForce() const;
  /// Whether there is an override, even if the shortcut is disabled.
  [[nodiscard]] bool hasCustomShortcut(SnapAction action) const;

  /// Assigns the shortcut, or returns the problem and changes nothing. Does nothing for an unknown area id.
  std::optional<ShortcutRules::Problem> assign(const HotKeySpec& spec, SnapAction to);
  std::optional<ShortcutRules::Problem> assign(const HotKeySpec& spec, const Uuid& toArea);
  /// Returns to the built-in shortcut.
  void resetShortcut(SnapAction action);
  /// Removes the shortcut, including the built-in one.
  void clearShortcut(SnapAction action);

  /// Clamps distances to 0 to 64 points, areas to the display and their names to the length kept; keeps only
  /// the first `maximumAreas`.
  void clamp();
};

}  // namespace tilwin
