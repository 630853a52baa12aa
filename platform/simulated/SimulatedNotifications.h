#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/ports/Notifications.h"

namespace tilwin {

/// Notifications in memory; a test reads them and presses their buttons.
class SimulatedNotifications final : public Notifications {
public:
  struct Shown {
    Notification notification{};
    std::function<void()> press;
  };

  void show(const Notification& notification, std::function<void()> onShown,
            std::function<void()> onButton) override {
    if (!isThere) return;
    shown.push_back({notification, std::move(onButton)});
    onShown();
  }

  bool isThere = true;  ///< whether the desktop shows notifications
  std::vector<Shown> shown;
};

}  // namespace tilwin
