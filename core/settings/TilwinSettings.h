#pragma once

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

/// The user's preferences. Shortcuts hold only what differs from the built-in ones, so that a change of those
/// reaches everyone who never touched that action.
struct TilwinSettings {
  struct DefaultShortcut {
    SnapAction action = SnapAction::leftHalf;
    HotKeySpec spec{};
  };

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
  /// The shortcut in force: none when disabled, else the override, else the built-in one.
  [[nodiscard]] std::optional<HotKeySpec> shortcut(SnapAction action) const;
  /// Every shortcut in force and what it triggers: actions in their order, then areas in theirs.
  [[nodiscard]] std::vector<std::pair<ShortcutOwner, HotKeySpec>> shortcutsInForce() const;
  /// Whether there is an override, in force or not.
  [[nodiscard]] bool hasCustomShortcut(SnapAction action) const;

  /// Gives the shortcut to the action or area, or says what stands against it and changes nothing. An id that
  /// no area has changes nothing either.
  std::optional<ShortcutRules::Problem> assign(const HotKeySpec& spec, SnapAction to);
  std::optional<ShortcutRules::Problem> assign(const HotKeySpec& spec, const Uuid& toArea);
  /// Back to the built-in shortcut.
  void resetShortcut(SnapAction action);
  /// No shortcut, not even the built-in one.
  void clearShortcut(SnapAction action);

  /// Brings distances into 0 to 64 points and areas onto the screen, of which the first 12 are kept.
  void clamp();
};

}  // namespace tilwin
