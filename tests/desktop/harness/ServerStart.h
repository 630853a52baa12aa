#pragma once

#include <string>
#include <vector>

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/Pixels.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

/// A running server and its display.
struct StartedServer {
  ChildProcess process;
  /// ":N".
  std::string display;
};

/// Starts an X server, which chooses a free display number and reports it through -displayfd. Throws
/// HarnessError, with the end of its log, if that fails.
StartedServer startServer(const PrivateHome& home, const std::string& name, std::vector<std::string> argv);

/// The numbers of a mode line, after its name, for the X configuration and xrandr. The timings are arbitrary,
/// within the dummy driver's pixel clock.
std::vector<std::string> modeTimings(PixelSize size);

/// The Xorg configuration of a dummy server.
std::string dummyConfiguration(PixelSize first, PixelSize largest);

}  // namespace tilwin::desktop
