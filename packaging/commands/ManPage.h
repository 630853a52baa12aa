#pragma once

#include <string>

namespace tilwin {

/// tilwin(1), in the macros of man(7).
[[nodiscard]] std::string manPage();

}  // namespace tilwin
