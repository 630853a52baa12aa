#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/doctor/DesktopFacts.h"
#include "core/doctor/SystemFacts.h"
#include "core/geometry/DisplayInfo.h"
#include "core/settings/HotKeySpec.h"
#include "core/settings/Wording.h"

namespace tilwin {

struct ShortcutFacts {
  enum class State : std::uint8_t {
    unknown,  ///< nobody has asked for it, as no instance runs
    works,
    refused,
    usedEarlier,  ///< the settings have it twice
  };

  HotKeySpec keys{};
  std::string action{};  ///< raw value; empty: a custom area
  std::string area{};    ///< its name
  State state = State::unknown;

  bool operator==(const ShortcutFacts&) const = default;
};

/// A press of a shortcut. On the clock of `MainQueue::uptime`.
struct PressFacts {
  using Seconds = MoveTimes::Seconds;

  std::string action{};  ///< raw value; empty: a custom area
  Seconds received{};
  Seconds done{};  ///< when the window had been asked to move, or was found not to need it

  bool operator==(const PressFacts&) const = default;
};

struct FileFacts {
  std::string what{};  ///< "settings"
  std::filesystem::path path{};
  bool exists = false;
  bool isReadable = true;
  std::uintmax_t size = 0;  ///< bytes
  std::uint32_t mode = 0;   ///< POSIX permissions
  bool isPrivate = false;   ///< nobody but its user has any business with it

  bool operator==(const FileFacts&) const = default;
};

/// All that `tilwin doctor` knows.
struct Diagnosis {
  bool isRunning = false;  ///< an instance was asked
  bool mayMoveWindows = true;
  SystemFacts system{};
  DesktopFacts desktop{};
  std::vector<DisplayInfo> displays{};
  std::vector<ShortcutFacts> shortcuts{};
  std::vector<PressFacts> presses{};  ///< the last ones, the oldest first
  std::vector<FileFacts> files{};
  bool areSettingsUnreadable = false;
  std::optional<bool> isIconShown{};  ///< nothing if it is not to be, or nobody knows
  bool tilesAtEdgesToo = false;       ///< the desktop says so
  Wording wording{};
};

}  // namespace tilwin
