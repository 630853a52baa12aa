#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_set>

#include "core/settings/TilwinSettings.h"
#include "core/settings/Wording.h"

namespace tilwin {

/// Everything that the settings window shows. A section of the form is a pure function of this.
struct FormState {
  TilwinSettings settings{};
  std::unordered_set<ShortcutOwner> unavailable{};  ///< owners whose shortcut the desktop refused
  bool nativeTilingOn = false;                      ///< the desktop itself snaps windows at edges
  std::size_t shadowDrags = 0;                      ///< drags in the drag log
  bool openAtLogin = false;
  std::optional<std::string> loginNote{};         ///< why opening at login could not be turned on
  std::string search{};                           ///< what the user looks for among the shortcuts
  std::set<std::string> changedRows{};            ///< recorders just used, shown whether found or not
  std::string recording{};                        ///< the id of the recorder that records; empty if none does
  std::map<std::string, std::string> problems{};  ///< by the id of the recorder whose keys were rejected
  double displayAspect = 1.6;                     ///< width / height of the primary display's visible frame
  Wording wording{};

  bool operator==(const FormState&) const = default;
};

}  // namespace tilwin
