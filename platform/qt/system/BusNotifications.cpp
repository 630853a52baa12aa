#include "platform/qt/system/BusNotifications.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QVariantMap>
#include <utility>

namespace tilwin::qt {
namespace {

constexpr auto service = "org.freedesktop.Notifications";
constexpr auto objectPath = "/org/freedesktop/Notifications";
constexpr int untilTheServerThinksItIsEnough = -1;

}  // namespace

BusNotifications::BusNotifications(QDBusConnection bus, QString icon)
    : bus_(std::move(bus)), icon_(std::move(icon)) {}

BusNotifications::~BusNotifications() = default;

void BusNotifications::show(const Notification& notification, std::function<void()> onShown,
                            std::function<void()> onButton) {
  if (!bus_.isConnected()) return;
  const QString action = listen(std::move(onButton));
  auto call = QDBusMessage::createMethodCall(service, objectPath, service, "Notify");
  call << QStringLiteral("Tilwin") << 0U << icon_ << QString::fromStdString(notification.title)
       << QString::fromStdString(notification.text)
       << QStringList{action, QString::fromStdString(notification.button)} << QVariantMap()
       << untilTheServerThinksItIsEnough;
  auto* const answer = new QDBusPendingCallWatcher(bus_.asyncCall(call), pressed_.back().get());
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, shown = std::move(onShown)] {
    answer->deleteLater();
    if (!answer->isError()) shown();
  });
}

/// The server tells everybody which button was pressed. So that only this notification's is heard, without a
/// generated slot for the signal's arguments, the button has a name that no other has, and the bus compares
/// it.
QString BusNotifications::listen(std::function<void()> onButton) {
  auto pressed = std::make_unique<QTimer>();
  pressed->setSingleShot(true);
  pressed->setInterval(0);
  pressed->callOnTimeout(pressed.get(), std::move(onButton));
  QString action = QStringLiteral("tilwin%1.%2").arg(bus_.baseService()).arg(pressed_.size());
  bus_.connect(service, objectPath, service, "ActionInvoked", {QString(), action}, QString(), pressed.get(),
               SLOT(start()));
  pressed_.push_back(std::move(pressed));
  return action;
}

}  // namespace tilwin::qt
