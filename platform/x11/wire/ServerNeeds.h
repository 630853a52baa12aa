#pragma once

#include <optional>
#include <string>

namespace tilwin::x11 {

/// What an X server and its window manager offer of the things this program cannot do without.
struct ServerNeeds {
  struct Version {
    unsigned major = 0;
    unsigned minor = 0;

    bool operator==(const Version&) const = default;
    [[nodiscard]] constexpr bool isAtLeast(const Version& least) const {
      return major > least.major || (major == least.major && minor >= least.minor);
    }
  };

  Version randr;               ///< RandR; monitors need 1.5
  Version xinput;              ///< X Input; raw events reach us under another client's grab since 2.1
  Version xkb;                 ///< X Keyboard; 1.0
  Version shape;               ///< Shape; windows that let clicks through need 1.1
  bool windowManager = false;  ///< an EWMH window manager runs: _NET_SUPPORTING_WM_CHECK names a live window
  bool moveResize = false;     ///< it takes _NET_MOVERESIZE_WINDOW

  bool operator==(const ServerNeeds&) const = default;
};

/// One line that names the first thing missing and what to do about it; nothing when all is there.
[[nodiscard]] std::optional<std::string> missing(const ServerNeeds& offered);

}  // namespace tilwin::x11
