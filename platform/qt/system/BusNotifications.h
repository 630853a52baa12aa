#pragma once

#include <QDBusConnection>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "platform/ports/Notifications.h"

namespace tilwin::qt {

/// Notifications over the session bus. Source: Desktop Notifications Specification 1.2.
class BusNotifications : public Notifications {
public:
  /// Without a bus, nothing is shown. `icon` is the name of one in the desktop's theme.
  BusNotifications(QDBusConnection bus, QString icon);
  BusNotifications(const BusNotifications&) = delete;
  BusNotifications& operator=(const BusNotifications&) = delete;
  ~BusNotifications() override;

  void show(const Notification& notification, std::function<void()> onShown,
            std::function<void()> onButton) override;

private:
  QString listen(std::function<void()> onButton);

  QDBusConnection bus_;
  QString icon_;
  std::vector<std::unique_ptr<QTimer>> pressed_;
};

}  // namespace tilwin::qt
