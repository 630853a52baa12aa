#pragma once

#include <cstddef>
#include <string_view>

namespace tilwin {

/// One character of UTF-8 text, and how many bytes it takes.
struct Utf8Character {
  char32_t codePoint = 0;  ///< U+FFFD for ill-formed bytes
  std::size_t size = 0;    ///< in bytes; 0 where there is no character
};

/// Walking UTF-8 text, which may be ill-formed, in both directions.
struct Utf8 {
  [[nodiscard]] static bool isAscii(std::string_view text);
  /// The character that begins at `at`.
  [[nodiscard]] static Utf8Character next(std::string_view text, std::size_t at = 0);
  /// The character that ends before `at`.
  [[nodiscard]] static Utf8Character previous(std::string_view text, std::size_t at);
};

}  // namespace tilwin
