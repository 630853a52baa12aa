#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/settings/ShortcutRules.h"

namespace tilwin {

/// The ids of the settings form's controls. The ids of controls that belong to an action or an area have the
/// form "kind:name" or "kind:UUID".
struct FormIds {
  static constexpr std::string_view outer = "outer";
  static constexpr std::string_view gap = "gap";
  static constexpr std::string_view dragToSnap = "dragToSnap";
  static constexpr std::string_view cycleWidths = "cycleWidths";
  static constexpr std::string_view restoreOnDisplayChange = "restoreOnDisplayChange";
  static constexpr std::string_view showMenuBarIcon = "showMenuBarIcon";
  static constexpr std::string_view openAtLogin = "openAtLogin";
  static constexpr std::string_view openDesktopAndDock = "openDesktopAndDock";
  static constexpr std::string_view search = "search";
  static constexpr std::string_view addArea = "addArea";
  static constexpr std::string_view shadowRecording = "shadowRecording";
  static constexpr std::string_view showShadowData = "showShadowData";
  static constexpr std::string_view deleteShadowData = "deleteShadowData";

  static constexpr std::string_view shortcut = "shortcut";  ///< recorder of an action or an area
  static constexpr std::string_view reset = "reset";        ///< of an action
  static constexpr std::string_view areaName = "areaName";
  static constexpr std::string_view areaX = "areaX";
  static constexpr std::string_view areaY = "areaY";
  static constexpr std::string_view areaWidth = "areaWidth";
  static constexpr std::string_view areaHeight = "areaHeight";
  static constexpr std::string_view areaPicture = "areaPicture";
  static constexpr std::string_view areaDelete = "areaDelete";

  [[nodiscard]] static std::string of(std::string_view kind, const ShortcutOwner& owner);
  /// The part of an id before the colon; the whole id if there is none.
  [[nodiscard]] static std::string_view kind(std::string_view id);
  /// The owner named after the colon; nothing if there is none.
  [[nodiscard]] static std::optional<ShortcutOwner> owner(std::string_view id);
};

}  // namespace tilwin
