#pragma once

#include "app/HotKeyCenter.h"
#include "core/settings/TilwinSettings.h"
#include "core/snap/SnapController.h"
#include "platform/ports/Platform.h"

namespace tilwin {

/// Owns the program's services for the life of the process and joins them: a press becomes an action on the
/// focused window. The platform must outlive it.
class AppDelegate {
public:
  explicit AppDelegate(Platform& platform);

  /// Registers the shortcuts; from here on presses are acted on while the main queue runs.
  void start();

private:
  void perform(const ShortcutOwner& owner);
  void logShortcuts(const HotKeyCenter::OwnerSet& refused) const;

  Platform& platform_;
  TilwinSettings settings_;
  SnapController controller_;
  HotKeyCenter hotKeyCenter_;
};

}  // namespace tilwin
