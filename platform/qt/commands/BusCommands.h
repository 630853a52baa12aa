#pragma once

#include <QDBusConnection>
#include <QString>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ports/CommandServer.h"
#include "platform/qt/bus/BusObject.h"

namespace tilwin::qt {

/// Takes commands over the session bus, which only this user can reach. The interface, as docs/bus.md
/// explains it, has a version in its name; within a version it only grows. Source: D-Bus Specification; D-Bus
/// API Design Guidelines.
class BusCommands : public CommandServer {
public:
  static constexpr auto service = "org.tilwin.Tilwin";  ///< that of the first instance; the bus can start it
  static constexpr auto path = "/org/tilwin/Commands";
  static constexpr auto interfaceName = "org.tilwin.Commands1";
  static constexpr auto couldNot = "org.tilwin.Commands1.CouldNot";
  static constexpr auto wrongUse = "org.tilwin.Commands1.WrongUse";

  /// `bus` is that on which this instance owns a name; without a bus nothing is taken. `version` is that of
  /// the program.
  BusCommands(QDBusConnection bus, std::string_view version);
  BusCommands(const BusCommands&) = delete;
  BusCommands& operator=(const BusCommands&) = delete;
  ~BusCommands() override;

  bool serve(Handler handler) override;
  void tell(std::string_view line) override;

private:
  class Object;

  QDBusConnection bus_;
  std::string version_;
  std::unique_ptr<Object> object_;
};

}  // namespace tilwin::qt
