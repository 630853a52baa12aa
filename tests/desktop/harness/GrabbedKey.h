#pragma once

#include <string>

#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// Another program that holds a key combination: a passive grab on the root window over its own connection,
/// for every state of Caps Lock and Num Lock. The destructor releases it. Throws HarnessError if the
/// combination is already grabbed.
class GrabbedKey {
public:
  GrabbedKey(const std::string& display, const std::string& chord);

private:
  XConnection connection_;
};

/// Whether some client has grabbed that combination on the root window. Tries to grab it and releases it
/// again. Does not see grabs of a window manager on its frame windows; a grab on the root takes precedence.
bool keyIsGrabbed(const std::string& display, const std::string& chord);

}  // namespace tilwin::desktop
