#pragma once

#include <functional>
#include <string>

#include "app/layouts/LayoutKeeper.h"
#include "app/menu/CommandDialogs.h"
#include "app/menu/LayoutCommands.h"
#include "app/settings/SettingsStore.h"
#include "app/updates/UpdaterService.h"
#include "app/windows/CommandWindows.h"
#include "core/snap/SnapController.h"
#include "platform/ports/Platform.h"

namespace tilwin {

/// Makes the status menu from the program's state and carries out what the user chooses from it. Main thread
/// only.
class MenuCommands {
public:
  struct Parts {
    Platform& platform;
    SettingsStore& store;
    SnapController& controller;
    CommandWindows& windows;
    LayoutKeeper& layouts;
    UpdaterService& updater;
  };

  /// All parts must outlive this.
  explicit MenuCommands(const Parts& parts);

  std::function<void()> showSettings;

  /// To be called when the menu opens.
  [[nodiscard]] MenuModel menu();
  /// Commands that are not in the menu are ignored.
  void run(const MenuChoice& choice);
  /// Moves the focused window into the first custom area with this id; does nothing if there is none.
  void runArea(const Uuid& id);

private:
  struct Entry;

  void snap(const std::string& rawValue);
  void runAreaNamed(const std::string& id);
  void toggleIgnore(const std::string& bundleID);
  void saveWindowAsArea();

  Parts parts_;
  CommandDialogs dialogs_;
  LayoutCommands layoutCommands_;
};

}  // namespace tilwin
