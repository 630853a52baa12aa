#pragma once

#include <string>

#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// Another program that has a key combination: a passive grab on the root window from a connection of its
/// own, under every state of Caps Lock and Num Lock, held while this lives. Throws HarnessError when the
/// combination is already taken.
class GrabbedKey {
public:
  GrabbedKey(const std::string& display, const std::string& chord);

private:
  XConnection connection_;
};

/// Whether some client holds that combination on the root window, found out by trying to grab it (and
/// letting go). A manager may hold it on each window it frames instead; a grab on the root goes before those.
bool keyIsGrabbed(const std::string& display, const std::string& chord);

}  // namespace tilwin::desktop
