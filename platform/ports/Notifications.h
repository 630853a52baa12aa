#pragma once

#include <functional>
#include <string>

namespace tilwin {

/// A message beside the work of the user, who may answer it by its one button.
struct Notification {
  std::string title{};
  std::string text{};
  std::string button{};

  bool operator==(const Notification&) const = default;
};

/// Shows notifications of the desktop.
class Notifications {
public:
  Notifications() = default;
  Notifications(const Notifications&) = delete;
  Notifications& operator=(const Notifications&) = delete;
  virtual ~Notifications() = default;

  /// Both handlers are called from the main queue: `onShown` once the desktop has taken the notification,
  /// never if it shows none; `onButton` each time the user presses the button.
  virtual void show(const Notification& notification, std::function<void()> onShown,
                    std::function<void()> onButton) = 0;
};

}  // namespace tilwin
