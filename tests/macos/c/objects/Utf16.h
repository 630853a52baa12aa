#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tilwin::macos::c {

void appendUtf16(std::u16string& to, char32_t character);

/// UTF-8, and how many units of the text it holds.
struct ConvertedText {
  std::string text;
  std::size_t units = 0;
};

/// Converts until a character does not fit into `capacity` bytes. Half a surrogate pair becomes `lossByte`,
/// or ends the conversion if that is 0.
[[nodiscard]] ConvertedText utf8(std::u16string_view units, char lossByte = '?',
                                 std::size_t capacity = std::string::npos);

}  // namespace tilwin::macos::c
