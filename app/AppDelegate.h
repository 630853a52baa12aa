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

/// Owns the program's services for the life of the process and joins them: a press becomes a move of the
/// focused window, a drag one of the window dragged, a change of the settings reaches whom it concerns. The
/// platform must outlive it.
class AppDelegate {
public:
  /// Reads the settings and does nothing else.
  explicit AppDelegate(Platform& platform);
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;
  ~AppDelegate() = default;

  /// Registers the shortcuts and watches the mouse; from here on presses, drags and changes of the settings
  /// are acted on while the main queue runs. Asks for the user's trust if there is none.
  void start();

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
  /// Posted tasks and the desktop hold this weakly, so that what they do once the delegate has gone is
  /// nothing.
  std::shared_ptr<AppDelegate*> self_;
};

}  // namespace tilwin
