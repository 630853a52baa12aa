#pragma once

#include "tests/desktop/harness/Session.h"

namespace tilwin::macos {

/// The private desktop on which AppKit's windows appear: a real X server and a window manager. Started by the
/// main function of the program.
[[nodiscard]] desktop::Session& macDesktop();

}  // namespace tilwin::macos
