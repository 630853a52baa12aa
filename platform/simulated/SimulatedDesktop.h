#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/ports/Platform.h"
#include "platform/simulated/SimulatedApplications.h"
#include "platform/simulated/SimulatedHotKeys.h"
#include "platform/simulated/SimulatedInterface.h"
#include "platform/simulated/SimulatedMainQueue.h"
#include "platform/simulated/SimulatedNotifications.h"
#include "platform/simulated/SimulatedPointer.h"
#include "platform/simulated/SimulatedSystem.h"
#include "platform/simulated/SimulatedUpdates.h"
#include "platform/simulated/SimulatedWindows.h"

namespace tilwin {

/// A whole desktop in memory. The program under test gets `platform()`. The test plays the user and the other
/// programs through the public members. Lengths are points.
class SimulatedDesktop {
public:
  /// `displays` is in the format of `parseDisplays`; throws `std::invalid_argument` if it is not. `files` is
  /// the application support folder; without it the desktop has none.
  explicit SimulatedDesktop(std::string_view displays = "1440x900+0+0",
                            std::optional<std::filesystem::path> files = std::nullopt);
  SimulatedDesktop(const SimulatedDesktop&) = delete;
  SimulatedDesktop& operator=(const SimulatedDesktop&) = delete;
  ~SimulatedDesktop() = default;

  SimulatedMainQueue time;
  SimulatedLog log;
  SimulatedHotKeys keyboard;
  SimulatedUserDefaults disk;
  SimulatedWindows windows;
  SimulatedPointer mouse;
  SimulatedOverlay sheet;
  SimulatedTrust user;
  SimulatedScreenChanges screens;
  SimulatedBundle bundle;
  SimulatedApplications applications{windows};
  SimulatedStatusItem icon;
  SimulatedDialogs dialogs;
  SimulatedSettingsWindow settingsWindow;
  SimulatedFileViewer viewer;
  SimulatedLoginService login;
  SimulatedUpdates updates;
  SimulatedWords words;
  SimulatedNotifications notifications;
  SimulatedDesktopReport desktopReport;
  SimulatedSystemReport systemReport;

  /// Connects these displays instead of the present ones; throws like the constructor.
  void setDisplays(std::string_view displays);

  /// The ports of this desktop, which must outlive their users.
  [[nodiscard]] Platform platform() {
    return {time,   log,     keyboard, disk,         provider_,     mouse,        sheet,
            user,   screens, bundle,   applications, icon,          dialogs,      settingsWindow,
            viewer, login,   updates,  words,        desktopReport, systemReport, &notifications};
  }
  [[nodiscard]] std::shared_ptr<DesktopWindows> provider() const { return provider_; }
  [[nodiscard]] HotKeys& hotKeys() { return keyboard; }
  [[nodiscard]] MainQueue& mainQueue() { return time; }
  [[nodiscard]] SystemLog& systemLog() { return log; }
  [[nodiscard]] UserDefaults& userDefaults() { return disk; }
  [[nodiscard]] PointerMonitor& pointerMonitor() { return mouse; }
  [[nodiscard]] Overlay& overlay() { return sheet; }
  [[nodiscard]] AccessibilityTrust& trust() { return user; }
  [[nodiscard]] ScreenChanges& screenChanges() { return screens; }

private:
  std::shared_ptr<DesktopWindows> provider_;
};

}  // namespace tilwin
