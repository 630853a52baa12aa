#pragma once

#include <optional>
#include <string>

namespace tilwin::x11 {

/// What an X server offers of the features that this program requires. Sources: RandR, X Input, X Keyboard
/// and Shape extensions.
struct ServerNeeds {
  struct Version {
    unsigned major = 0;
    unsigned minor = 0;

    bool operator==(const Version&) const = default;
    [[nodiscard]] constexpr bool isAtLeast(const Version& least) const {
      return major > least.major || (major == least.major && minor >= least.minor);
    }
  };

  Version randr;   ///< RandR; monitors need 1.5
  Version xinput;  ///< X Input; since 2.1 raw events arrive while another client holds a grab
  Version xkb;     ///< X Keyboard; key names need 1.0
  Version shape;   ///< Shape; windows that let clicks through need 1.1

  bool operator==(const ServerNeeds&) const = default;
};

/// One line that names the first missing feature and what to do about it; nothing if none is missing.
[[nodiscard]] std::optional<std::string> missing(const ServerNeeds& offered);

}  // namespace tilwin::x11
