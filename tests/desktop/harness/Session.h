#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/Input.h"
#include "tests/desktop/harness/PrivateHome.h"
#include "tests/desktop/harness/RealApplication.h"
#include "tests/desktop/harness/Screenshot.h"
#include "tests/desktop/harness/TestWindow.h"
#include "tests/desktop/harness/WindowManager.h"
#include "tests/desktop/harness/XServer.h"

namespace tilwin::desktop {

/// A private D-Bus session bus that can activate the installed services.
class SessionBus {
public:
  /// `environment` is passed to the services that the bus starts. Throws HarnessError if the bus does not
  /// start.
  SessionBus(const PrivateHome& home, const Environment& environment);

  /// DBUS_SESSION_BUS_ADDRESS.
  Environment environment() const;
  ChildProcess& process() { return process_; }

private:
  std::string address_;
  ChildProcess process_;
};

struct SessionOptions {
  Manager manager = Manager::openbox;
  ManagerSetup setup = {};
  /// The size of the virtual screen if no displays are given.
  PixelSize screen{1920, 1080};
  /// The displays of a dummy server; if empty, a virtual screen is used.
  std::vector<PluggedDisplay> displays = {};
  /// How large a dummy server's screen may grow.
  PixelSize largest{7680, 4320};
};

/// A complete private desktop: home, server, bus and window manager, with an observer and input for the test.
/// Everything started in it ends with it.
class Session {
public:
  /// Throws HarnessError if a part does not start.
  explicit Session(const SessionOptions& options = {});
  ~Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// The same, but returns null and the reason in `whyNot` if the machine cannot run the server.
  static std::unique_ptr<Session> tryStart(const SessionOptions& options, std::string& whyNot);

  PrivateHome& home() { return home_; }
  XServer& server() { return *server_; }
  SessionBus& bus() { return bus_; }
  WindowManager& manager() { return manager_; }
  Desktop& desktop() { return desktop_; }
  Input& input() { return input_; }

  /// The environment of the programs on this desktop.
  Environment environment() const;
  /// Starts a program in the session, its output in home().log(name).
  ChildProcess start(const std::string& name, const std::vector<std::string>& argv);
  RealApplication open(Application application);
  TestWindow window(const TestWindowOptions& options = {});
  /// Saves a screenshot of the screen or of `area`.
  void screenshot(const std::filesystem::path& file, const std::optional<Rect>& area = std::nullopt);

private:
  // Ended from the last to the first.
  PrivateHome home_;
  std::unique_ptr<XServer> server_;
  SessionBus bus_;
  Desktop desktop_;
  Input input_;
  WindowManager manager_;
};

}  // namespace tilwin::desktop
