#include "tests/desktop/harness/Session.h"

#include "tests/desktop/harness/HarnessError.h"

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

}  // namespace tilwin::desktop
