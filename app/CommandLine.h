#pragma once

#include <optional>
#include <ostream>
#include <span>
#include <string_view>

#include "platform/ports/Bundle.h"

namespace tilwin {

/// What the program does instead of starting when it is asked to on the command line. None of it needs a
/// display.
struct CommandLine {
  /// Does the first of the modes that any of the arguments names and returns the status to end with; nothing
  /// when none of them names a mode.
  [[nodiscard]] static std::optional<int> run(std::span<const char* const> arguments, Bundle& bundle,
                                              std::ostream& output);
};

}  // namespace tilwin
