#pragma once

#include <array>
#include <string>
#include <vector>

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/Desktop.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

/// Installed programs, each an example of how windows can behave.
enum class Application {
  /// Sizes in character cells.
  xterm,
  /// GTK 3 with a header bar: draws its own frame, and a shadow on composited screens.
  gtkHeaderBar,
  /// GTK 3 with a menu bar, framed by the window manager.
  gtkMenuBar,
  /// Qt 5 with a menu bar, framed by the window manager.
  qt,
};

inline constexpr std::array<Application, 4> allApplications{Application::xterm, Application::gtkHeaderBar,
                                                            Application::gtkMenuBar, Application::qt};

struct ApplicationTraits {
  Application application;
  /// In test names and logs.
  const char* name;
  std::array<const char*, 6> argv;
  /// The class half of its main window's WM_CLASS.
  const char* className;
};

const ApplicationTraits& traits(Application application);

/// A running application with its main window. The destructor ends it and waits until the window manager has
/// released the window, whose id the next application may get.
class RealApplication {
public:
  /// Starts it and waits until its main window is managed and drawn at its initial size. Throws HarnessError
  /// on timeout.
  RealApplication(Application application, const PrivateHome& home, const Environment& environment,
                  Desktop& desktop);
  RealApplication(const RealApplication&) = delete;
  RealApplication& operator=(const RealApplication&) = delete;
  ~RealApplication();

  WindowId window() const { return window_; }
  ChildProcess& process() { return process_; }
  const ApplicationTraits& traits() const { return traits_; }

private:
  void waitForWindow(const std::vector<WindowId>& before);
  bool isListed();

  const ApplicationTraits& traits_;
  Desktop& desktop_;
  ChildProcess process_;
  WindowId window_ = 0;
};

}  // namespace tilwin::desktop
