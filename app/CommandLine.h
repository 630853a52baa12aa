#pragma once

#include <optional>
#include <ostream>
#include <span>
#include <string_view>

#include "platform/ports/Bundle.h"

namespace tilwin {

/// Command-line modes, which run instead of the normal program, such as `--shadow-report`. They need no
/// display.
struct CommandLine {
  /// Runs a mode if one of the arguments names it, and returns the exit status. Returns nothing if no
  /// argument names a mode. Unknown arguments are ignored.
  [[nodiscard]] static std::optional<int> run(std::span<const char* const> arguments, Bundle& bundle,
                                              std::ostream& output);
};

}  // namespace tilwin
