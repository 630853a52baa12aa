#include "tests/desktop/harness/Session.h"

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/ReadyLine.h"

namespace tilwin::desktop {

namespace {

std::unique_ptr<XServer> startServerFor(const SessionOptions& options, const PrivateHome& home) {
  if (options.displays.empty()) return XServer::virtualScreen(home, options.screen);
  std::string whyNot;
  auto server = XServer::dummy(home, options.displays, options.largest, whyNot);
  if (!server) throw ServerUnavailable(whyNot);
  return server;
}

}  // namespace

Session::Session(const SessionOptions& options)
    : server_(startServerFor(options, home_)),
      bus_(home_, home_.environment().with(server_->environment())),
      desktop_(server_->display()),
      input_(server_->display()),
      manager_(options.manager, options.setup, home_, environment(), desktop_) {}

std::unique_ptr<Session> Session::tryStart(const SessionOptions& options, std::string& whyNot) {
  try {
    return std::make_unique<Session>(options);
  } catch (const ServerUnavailable& error) {
    whyNot = error.what();
    return nullptr;
  }
}

Environment Session::environment() const {
  return home_.environment().with(server_->environment()).with(bus_.environment());
}

ChildProcess Session::start(const std::string& name, const std::vector<std::string>& argv) {
  return ChildProcess::start({.argv = argv, .environment = environment(), .outputFile = home_.log(name)});
}

RealApplication Session::open(Application application) {
  return RealApplication(application, home_, environment(), desktop_);
}

TestWindow Session::window(const TestWindowOptions& options) {
  return TestWindow(server_->display(), options);
}

void Session::screenshot(const std::filesystem::path& file, const std::optional<Rect>& area) {
  saveScreenshot(desktop_.connection(), file, area);
}

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
