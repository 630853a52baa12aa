#pragma once

#include <ostream>
#include <span>

#include "tests/desktop/floods/HostileClient.h"

namespace tilwin::desktop {

/// The windows that floods are about.
struct FloodTargets {
  WindowId focused = 0;  ///< the window that a press moves
  WindowId panel = 0;    ///< one with a strut
  WindowId snapped = 0;  ///< one that was snapped just before, without the focus
};

/// Something that a client can do without pause and that concerns every window manager's helper.
struct Flood {
  const char* name = "";  ///< as part of a test's name
  /// Makes what is done; atoms are looked up here, before it begins.
  HostileClient::Act (*make)(XConnection& client, const FloodTargets& targets) = nullptr;
  /// Whether window managers have to be started anew after it.
  bool drownsManagers = false;

  friend std::ostream& operator<<(std::ostream& out, const Flood& flood) { return out << flood.name; }
};

[[nodiscard]] std::span<const Flood> allFloods();

}  // namespace tilwin::desktop
