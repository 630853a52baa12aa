#pragma once

#include <string>
#include <vector>

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/Pixels.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

/// A server that answered with its display number.
struct StartedServer {
  ChildProcess process;
  /// ":N".
  std::string display;
};

/// Starts an X server that chooses a free display number and tells it through -displayfd. Throws
/// HarnessError, with the end of its log, when it does not.
StartedServer startServer(const PrivateHome& home, const std::string& name, std::vector<std::string> argv);

/// A mode line of the X configuration and of xrandr: the numbers after the name. Made up timings, within the
/// dummy driver's pixel clock.
std::vector<std::string> modeTimings(PixelSize size);

/// The Xorg configuration of a dummy server.
std::string dummyConfiguration(PixelSize first, PixelSize largest);

}  // namespace tilwin::desktop
