#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/drag/DragRecording.h"
#include "app/drag/DragWatcher.h"
#include "app/keys/HotKeyCenter.h"
#include "app/keys/HotKeyFingerprint.h"
#include "app/settings/Published.h"
#include "app/settings/SettingsStore.h"
#include "core/snap/SnapController.h"
#include "platform/ports/Platform.h"

namespace tilwin {

/// Owns the program's services for the life of the process and connects them: a hot key moves the focused
/// window, a drag to an edge snaps the dragged window, a changed setting reaches every service that uses it.
/// The platform must outlive it. Main thread only.
class AppDelegate {
public:
  /// Only reads the settings; `start` does the rest.
  explicit AppDelegate(Platform& platform);
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;
  ~AppDelegate() = default;

  /// Registers the hot keys and starts watching the mouse. Asks for accessibility permission if the desktop
  /// requires it and it is not granted. Events are handled while the main queue runs.
  void start();

  /// Lives as long as this object.
  [[nodiscard]] SettingsStore& store() { return store_; }

private:
  void applySettings();
  void startDrags();
  [[nodiscard]] bool isIgnored(const std::string& bundleID) const;
  void registerHotKeys(const TilwinSettings& settings);
  void perform(const ShortcutOwner& owner);
  void runArea(const Uuid& id);
  void logShortcuts(const TilwinSettings& settings, const HotKeyCenter::OwnerSet& refused) const;

  Platform& platform_;
  SettingsStore store_;
  SnapController controller_;
  HotKeyCenter hotKeyCenter_;
  DragRecording recording_;
  DragWatcher drag_;
  std::optional<HotKeyFingerprint> lastHotKeys_;
  Subscription settingsChanges_;
  /// Posted tasks and callbacks hold this weakly, so that they do nothing after this object is destroyed.
  std::shared_ptr<AppDelegate*> self_;
};

}  // namespace tilwin
