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
  /// it has run its script, answers _NET_REQUEST_FRAME_EXTENTS (EWMH) or, if it can do neither, has framed or
  /// listed a window. windowmaker crashes now and then if that window goes soon after.
  bool managerAnswers();

  const ManagerTraits& traits_;
  ManagerSetup setup_;
  const PrivateHome& home_;
  Environment environment_;
  Desktop& desktop_;
  ChildProcess process_;
};

}  // namespace tilwin::desktop
