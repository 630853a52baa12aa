#pragma once

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/Desktop.h"
#include "tests/desktop/harness/Manager.h"

namespace tilwin::desktop {

/// A window manager running on a server. The home and the desktop must outlive it.
class WindowManager {
public:
  /// Writes the window manager's settings, starts it and waits until it announces itself
  /// (_NET_SUPPORTING_WM_CHECK; EWMH) and answers requests. Throws HarnessError on timeout.
  WindowManager(Manager manager, const ManagerSetup& setup, const PrivateHome& home, Environment environment,
                Desktop& desktop);

  const ManagerTraits& traits() const { return traits_; }
  bool composites() const;
  ChildProcess& process() { return process_; }

  /// Ends the window manager; the windows remain, unmanaged.
  void stop();
  /// Starts a stopped window manager again and waits until it is ready.
  void start();
  /// Restarts it and waits until it manages all existing windows.
  void restart();

private:
  /// A window manager announces itself before it handles requests, and may drop early ones. It is ready once
  /// it answers _NET_REQUEST_FRAME_EXTENTS (EWMH) or, if it does not support that, has framed a window.
  bool managerAnswers();
  /// Whether the window manager lists it in _NET_SUPPORTED (EWMH).
  bool supports(const std::string& message);

  const ManagerTraits& traits_;
  ManagerSetup setup_;
  const PrivateHome& home_;
  Environment environment_;
  Desktop& desktop_;
  ChildProcess process_;
};

}  // namespace tilwin::desktop
