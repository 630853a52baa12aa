#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/qt/system/ReleaseVersion.h"

namespace tilwin::qt {

/// Feeds that tell of the releases of a program. Source: RSS 2.0 with the namespace of Sparkle's appcasts.
struct Appcast {
  struct Release {
    ReleaseVersion version{};
    std::string name{};  ///< the version as the feed writes it
    std::string page{};  ///< the web page of the release, else of the program; empty if the feed names none
  };

  /// The newest release, or why there is none.
  struct Reading {
    std::optional<Release> newest{};
    std::string problem{};
  };

  /// Reads a feed, in any encoding that XML can declare. Releases of other systems (`sparkle:os`) and of
  /// channels (`sparkle:channel`) are skipped, as are those without a version. Only addresses of http and
  /// https count as pages. A document with a type declaration is refused, whatever it declares.
  [[nodiscard]] static Reading read(std::string_view feed);
};

}  // namespace tilwin::qt
