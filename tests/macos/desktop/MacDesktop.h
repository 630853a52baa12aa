#pragma once

#include "tests/desktop/harness/ExitGuard.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::macos {

/// The private desktop on which AppKit's windows appear: a real X server and a window manager.
[[nodiscard]] desktop::Session& macDesktop();

/// Starts that desktop and gives this process the environment of a program on it. One per process, at the
/// start of main.
class MacDesktop {
public:
  MacDesktop();
  MacDesktop(const MacDesktop&) = delete;
  MacDesktop& operator=(const MacDesktop&) = delete;
  ~MacDesktop();

private:
  desktop::EndOnSignal endOnSignal_;
  desktop::Session session_;
};

}  // namespace tilwin::macos
