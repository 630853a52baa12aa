#include "platform/qt/menu/NotifierHosts.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <limits>
#include <utility>

namespace tilwin::qt {
namespace {

constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";

}  // namespace

NotifierHosts::NotifierHosts(QDBusConnection bus, std::function<void()> onChange)
    : bus_(std::move(bus)), onChange_(std::move(onChange)) {
  soon_.setSingleShot(true);
  soon_.setInterval(0);
  soon_.callOnTimeout([this] { ask(); });
  soon_.start();
  if (!bus_.isConnected()) return;
  names_.setConnection(bus_);
  names_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
  names_.addWatchedService(watcherName);
  QObject::connect(&names_, &QDBusServiceWatcher::serviceOwnerChanged, &soon_, [this] { soon_.start(); });
  for (const auto* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus_.connect(QString(), watcherPath, watcherName, signal, &soon_, SLOT(start()));
  }
}

void NotifierHosts::ask() {
  if (!bus_.isConnected()) return settle(Presence::absent, {});
  auto question =
      QDBusMessage::createMethodCall(watcherName, watcherPath, "org.freedesktop.DBus.Properties", "Get");
  question.setArguments({watcherName, "IsStatusNotifierHostRegistered"});
  question.setAutoStartService(false);
  const auto call = bus_.asyncCall(question, std::numeric_limits<int>::max());
  auto* answer = new QDBusPendingCallWatcher(call, &soon_);
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, &soon_,
                   [this, answer, number = ++lastQuestion_] {
                     answer->deleteLater();
                     if (number == lastQuestion_) answered(answer->reply());
                   });
}

void NotifierHosts::answered(const QDBusMessage& reply) {
  const auto values = reply.arguments();
  const bool isThere = reply.type() == QDBusMessage::ReplyMessage && !values.isEmpty() &&
                       qvariant_cast<QDBusVariant>(values[0]).variant().toBool();
  if (isThere) return settle(Presence::present, reply.service());
  settle(Presence::absent, {});
}

void NotifierHosts::settle(Presence presence, const QString& watcher) {
  presence_ = presence;
  watcher_ = watcher;
  onChange_();
}

}  // namespace tilwin::qt
