#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/SettingsApplier.h"
#include "app/commands/CommandRunner.h"
#include "app/commands/EventTeller.h"
#include "app/doctor/Doctor.h"
#include "app/drag/DragRecording.h"
#include "app/drag/DragWatcher.h"
#include "app/keys/HotKeyCenter.h"
#include "app/keys/TakenKeysNotice.h"
#include "app/layouts/LayoutKeeper.h"
#include "app/login/LoginItem.h"
#include "app/menu/MenuCommands.h"
#include "app/settings/Published.h"
#include "app/settings/SettingsPanel.h"
#include "app/settings/SettingsStore.h"
#include "app/updates/UpdaterService.h"
#include "app/windows/CommandWindows.h"
#include "core/snap/SnapController.h"
#include "platform/ports/CommandServer.h"
#include "platform/ports/Platform.h"

namespace tilwin {

/// Owns the program's services for the life of the process and connects them. The platform must outlive it.
/// Main thread only.
class AppDelegate {
public:
  /// Only reads the settings; `start` does the rest.
  explicit AppDelegate(Platform& platform);
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;
  ~AppDelegate() = default;

  /// Installs the status item, registers the hot keys and starts watching mouse and displays. Asks for
  /// accessibility permission if the desktop requires it and it is not granted. Events are handled while the
  /// main queue runs.
  void start();
  /// Opens the settings window, or brings the open one to the front; in the section of this id if there is
  /// one.
  void showSettings(const std::optional<std::string>& section = std::nullopt);

  /// Carries out a command that somebody gave to `tilwin` in another process.
  CommandReply runCommand(std::span<const std::string> arguments);
  /// Takes commands there from now on, and tells there what happens. The servers must outlive the main
  /// queue's run.
  void takeCommands(std::vector<CommandServer*> servers);

  /// Lives as long as this object.
  [[nodiscard]] SettingsStore& store() { return store_; }

private:
  void installStatusItem();
  void followSettings();
  void startHotKeys();
  void startDrags();
  void followWindowsAndLayouts();
  void followDisplays();
  void finishAtEnd();
  void tellOfTakenKeys();
  [[nodiscard]] bool isIgnored(const std::string& bundleID) const;
  void perform(const ShortcutOwner& owner);
  [[nodiscard]] std::unique_ptr<SettingsView> makeSettingsView();
  [[nodiscard]] SettingsView::Actions settingsActions();

  Platform& platform_;
  SettingsStore store_;
  std::shared_ptr<CommandWindows> windows_;
  SnapController controller_;
  HotKeyCenter hotKeyCenter_;
  DragRecording recording_;
  DragWatcher drag_;
  LayoutKeeper layouts_;
  LoginItem login_;
  std::unique_ptr<UpdaterService> updater_;
  std::unique_ptr<MenuCommands> menu_;
  SettingsApplier applier_;
  TakenKeysNotice takenKeys_;
  SettingsPanel panel_;
  Doctor doctor_;
  CommandRunner commands_;
  EventTeller events_;
  Subscription settingsChanges_;
  /// Posted tasks and callbacks hold this weakly, so that they do nothing after this object is destroyed.
  std::shared_ptr<AppDelegate*> self_;
};

}  // namespace tilwin
