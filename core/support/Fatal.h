#pragma once

#include <string_view>

namespace tilwin {

/// Ends the program at once, in every build, after one line on standard error. For what can only be a
/// programming error.
[[noreturn]] void fatal(std::string_view line);

}  // namespace tilwin
