#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/layouts/Layout.h"
#include "core/settings/TilwinSettings.h"
#include "core/settings/Wording.h"
#include "platform/ports/MenuModel.h"
#include "platform/ports/Workspace.h"

namespace tilwin {

/// The commands of the status menu, as they stand in the model. What each argument is, is in parentheses.
namespace command {

inline constexpr std::string_view allowAccessibility = "allowAccessibility";
inline constexpr std::string_view menuSnap = "menuSnap:";        ///< (raw value of a snap action)
inline constexpr std::string_view applyLayout = "applyLayout:";  ///< (layout id)
inline constexpr std::string_view saveArrangement = "saveArrangement";
inline constexpr std::string_view describeLayout = "describeLayout";
inline constexpr std::string_view deleteLayout = "deleteLayout:";  ///< (layout id)
inline constexpr std::string_view menuArea = "menuArea:";          ///< (area id)
inline constexpr std::string_view saveWindowAsArea = "saveWindowAsArea";
inline constexpr std::string_view toggleIgnore = "toggleIgnore:";  ///< (bundle identifier)
inline constexpr std::string_view showSettings = "showSettingsAction";
inline constexpr std::string_view checkUpdates = "checkUpdates";
inline constexpr std::string_view quit = "quit";

}  // namespace command

/// Everything that the status menu shows.
struct StatusMenu {
  TilwinSettings settings{};
  std::vector<Layout> userLayouts{};  ///< in the order shown
  std::optional<RunningApplication> frontmost{};
  std::optional<std::string> ownBundleIdentifier{};
  bool isTrusted = true;    ///< whether accessibility is allowed
  bool hasUpdates = false;  ///< whether the updater has started, or can check although it has not
  bool canCheckForUpdates = false;
  Wording wording{};

  [[nodiscard]] MenuModel model() const;
};

}  // namespace tilwin
