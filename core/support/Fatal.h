#pragma once

#include <string_view>

namespace tilwin {

/// Writes one line to standard error and aborts, in every build. For programming errors only.
[[noreturn]] void fatal(std::string_view line);

}  // namespace tilwin
