#include "tests/desktop/harness/SessionBus.h"

#include "tests/desktop/harness/ReadyLine.h"

namespace tilwin::desktop {

SessionBus::SessionBus(const PrivateHome& home, const Environment& environment)
    : address_("unix:path=" + (home.runtime() / "bus").string()) {
  const Launch launch{.argv = {"dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog",
                               "--address=" + address_, "--print-address=" + std::to_string(readyDescriptor)},
                      .environment = environment,
                      .outputFile = home.log("dbus-daemon")};
  auto ready = startReady(launch);
  address_ = ready.line;
  process_ = std::move(ready.process);
}

Environment SessionBus::environment() const {
  Environment environment;
  environment.set("DBUS_SESSION_BUS_ADDRESS", address_);
  return environment;
}

}  // namespace tilwin::desktop
