#pragma once

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/Desktop.h"
#include "tests/desktop/harness/Manager.h"

namespace tilwin::desktop {

/// A window manager running on a server. The home and the witness must outlive it.
class WindowManager {
public:
  /// Writes the manager's settings, starts it and waits until it manages (_NET_SUPPORTING_WM_CHECK names a
  /// window that names itself; EWMH) and answers requests. Throws HarnessError when that does not come about.
  WindowManager(Manager manager, const ManagerSetup& setup, const PrivateHome& home, Environment environment,
                Desktop& desktop);

  const ManagerTraits& traits() const { return traits_; }
  bool composites() const;
  ChildProcess& process() { return process_; }

  /// Ends the manager; its windows stay, unmanaged.
  void stop();
  /// Starts a stopped manager again, and waits until it manages.
  void start();
  /// Ends it and starts it anew; done when it manages all the windows there were.
  void restart();

private:
  /// A manager announces itself before it takes requests, and may drop those that come too early. A frame
  /// asked for and answered (_NET_REQUEST_FRAME_EXTENTS; EWMH) shows it at work, or where it does not know
  /// that, a window framed.
  bool managerAnswers();
  /// Whether the manager says so (_NET_SUPPORTED; EWMH).
  bool supports(const std::string& message);

  const ManagerTraits& traits_;
  ManagerSetup setup_;
  const PrivateHome& home_;
  Environment environment_;
  Desktop& desktop_;
  ChildProcess process_;
};

}  // namespace tilwin::desktop
