#include "platform/qt/bus/SessionBusConnection.h"

#include <QFileInfo>
#include <atomic>
#include <future>
#include <memory>
#include <thread>

namespace tilwin::qt {
namespace {

/// Where the bus of this session listens; empty if there is none.
QString busAddress() {
  QString named = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
  if (!named.isEmpty()) return named;
  const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  const QString socket = folder + QStringLiteral("/bus");
  return !folder.isEmpty() && QFileInfo::exists(socket) ? QStringLiteral("unix:path=") + socket : QString();
}

QString nextName() {
  static std::atomic<int> count{0};
  return QStringLiteral("tilwin-%1").arg(++count);
}

/// Connects on a thread of its own, as connecting waits for a bus for as long as libdbus likes. Returns false
/// if that takes too long; until it ends, whatever else asks for a bus of this process would wait too.
bool connectWithin(std::chrono::milliseconds patience, const QString& address, const QString& name) {
  const auto connected = std::make_shared<std::promise<void>>();
  // Whoever sets it first: the connection, or the end of patience.
  const auto isDecided = std::make_shared<std::atomic<bool>>(false);
  auto end = connected->get_future();
  std::thread([=] {
    QDBusConnection::connectToBus(address, name);
    if (isDecided->exchange(true)) return QDBusConnection::disconnectFromBus(name);
    connected->set_value();
  }).detach();
  return end.wait_for(patience) == std::future_status::ready || isDecided->exchange(true);
}

}  // namespace

SessionBusConnection::SessionBusConnection(std::chrono::milliseconds patience)
    : name_(nextName()), connection_(QString()) {
  const QString address = busAddress();
  if (address.isEmpty()) return;
  if (connectWithin(patience, address, name_)) connection_ = QDBusConnection(name_);
}

SessionBusConnection::~SessionBusConnection() {
  // An invalid connection has no name by which to disconnect it.
  if (connection_.name().isEmpty()) return;
  connection_ = QDBusConnection(QString());
  QDBusConnection::disconnectFromBus(name_);
}

}  // namespace tilwin::qt
