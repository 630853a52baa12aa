#pragma once

#include <string>

namespace tilwin {

/// The number rounded to so many places, with a point before them whatever the user's locale is. (Not by
/// std::to_chars: macOS has it for such numbers since 13.3 only.)
[[nodiscard]] std::string decimalText(double number, int places);

}  // namespace tilwin
