#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "app/keys/HotKeyCenter.h"
#include "core/settings/TilwinSettings.h"
#include "platform/ports/DesktopWords.h"
#include "platform/ports/Notifications.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin {

/// Tells a new user, once and never again, that the window manager or another program holds default
/// shortcuts: they would seem to do nothing. Main thread only.
class TakenKeysNotice {
public:
  /// Where it is stored that the user has been told.
  static constexpr std::string_view key = "tilwin.notice.takenKeys.v1";

  /// The ports must outlive this. Without notifications nothing is told.
  TakenKeysNotice(UserDefaults& defaults, Notifications* notifications, const DesktopWords& words)
      : defaults_(defaults), notifications_(notifications), words_(words) {}

  /// `refused` are the owners whose hot keys the desktop did not give. `showShortcuts` is called if the user
  /// wants to see them; it must stay callable as long as the notifications live.
  void tellOnce(const TilwinSettings& settings, const HotKeyCenter::OwnerSet& refused,
                std::function<void()> showShortcuts);

private:
  [[nodiscard]] Notification about(const std::vector<HotKeySpec>& taken) const;

  UserDefaults& defaults_;
  Notifications* notifications_;
  const DesktopWords& words_;
};

}  // namespace tilwin
