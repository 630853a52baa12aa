#pragma once

#include <optional>

#include "app/drag/DragRecording.h"
#include "app/drag/DragWatcher.h"
#include "app/keys/HotKeyCenter.h"
#include "app/keys/HotKeyFingerprint.h"
#include "app/layouts/LayoutKeeper.h"
#include "app/settings/SettingsStore.h"
#include "core/snap/SnapController.h"
#include "platform/ports/DesktopWords.h"
#include "platform/ports/StatusItem.h"
#include "platform/ports/SystemLog.h"

namespace tilwin {

/// Brings the settings into effect in every service that uses them. Main thread only.
class SettingsApplier {
public:
  struct Services {
    SettingsStore& store;
    SnapController& controller;
    HotKeyCenter& hotKeyCenter;
    StatusItem& statusItem;
    DragRecording& recording;
    DragWatcher& drag;
    LayoutKeeper& layouts;
    SystemLog& log;
    const DesktopWords& words;
  };

  /// The services must outlive this.
  explicit SettingsApplier(const Services& services) : services_(services) {}

  void apply();
  /// While a shortcut is recorded, hot keys are not registered; what has changed is made up for afterwards.
  void setRecordingShortcut(bool recording);
  /// Registers all hot keys again; others may be refused now than before.
  void registerAgain();
  /// The same if any was refused.
  void retryRefused();

private:
  void registerIfChanged(const TilwinSettings& settings);
  void registerHotKeys(const TilwinSettings& settings);
  void logShortcuts(const TilwinSettings& settings, const HotKeyCenter::OwnerSet& refused) const;

  Services services_;
  std::optional<HotKeyFingerprint> lastHotKeys_;
  bool recordingShortcut_ = false;
  bool registersAgainLater_ = false;  ///< once no shortcut is recorded
};

}  // namespace tilwin
