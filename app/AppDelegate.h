#pragma once

#include <memory>
#include <optional>

#include "app/HotKeyCenter.h"
#include "app/HotKeyFingerprint.h"
#include "app/Published.h"
#include "app/SettingsStore.h"
#include "core/snap/SnapController.h"
#include "platform/ports/Platform.h"

namespace tilwin {

/// Owns the program's services for the life of the process and joins them: a press becomes a move of the
/// focused window, a change of the settings reaches whom it concerns. The platform must outlive it.
class AppDelegate {
public:
  /// Reads the settings and does nothing else.
  explicit AppDelegate(Platform& platform);
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;
  ~AppDelegate() = default;

  /// Registers the shortcuts; from here on presses and changes of the settings are acted on while the main
  /// queue runs.
  void start();

  [[nodiscard]] SettingsStore& store() { return store_; }

private:
  void applySettings();
  void registerHotKeys(const TilwinSettings& settings);
  void perform(const ShortcutOwner& owner);
  void runArea(const Uuid& id);
  void logShortcuts(const TilwinSettings& settings, const HotKeyCenter::OwnerSet& refused) const;

  Platform& platform_;
  SettingsStore store_;
  SnapController controller_;
  HotKeyCenter hotKeyCenter_;
  std::optional<HotKeyFingerprint> lastHotKeys_;
  Subscription settingsChanges_;
  /// Posted tasks hold this weakly, so that one still waiting when the delegate goes does nothing.
  std::shared_ptr<AppDelegate*> self_;
};

}  // namespace tilwin
