#pragma once

#include <QDBusConnection>
#include <QString>
#include <chrono>

namespace tilwin::qt {

/// A connection of its own to the session bus, closed by the destructor. Starts no bus. Source: D-Bus
/// Specification, "Message Bus Names" and "Well-known Message Bus Instances".
class SessionBusConnection {
public:
  /// Waits no longer than `patience` for a bus that does not answer, and then has no connection.
  explicit SessionBusConnection(std::chrono::milliseconds patience);
  SessionBusConnection(const SessionBusConnection&) = delete;
  SessionBusConnection& operator=(const SessionBusConnection&) = delete;
  ~SessionBusConnection();

  [[nodiscard]] bool isConnected() const { return connection_.isConnected(); }
  [[nodiscard]] QDBusConnection connection() const { return connection_; }

private:
  QString name_;
  QDBusConnection connection_;
};

}  // namespace tilwin::qt
