#pragma once

#include "tests/desktop/harness/TestWindow.h"

namespace tilwin::desktop {

/// Makes the window that the options describe, with all its properties, not yet mapped.
WindowId makeWindow(XConnection& connection, const TestWindowOptions& options);

void setWindowTitle(XConnection& connection, WindowId window, const std::string& title);

}  // namespace tilwin::desktop
