#pragma once

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

/// A private D-Bus session bus with the installed services activatable on it.
class SessionBus {
public:
  /// `environment` is that of the services the bus starts. Throws HarnessError when the bus does not start.
  SessionBus(const PrivateHome& home, const Environment& environment);

  /// DBUS_SESSION_BUS_ADDRESS.
  Environment environment() const;
  ChildProcess& process() { return process_; }

private:
  std::string address_;
  ChildProcess process_;
};

}  // namespace tilwin::desktop
