#pragma once

#include <cstddef>
#include <string_view>

namespace tilwin {

/// One character of a UTF-8 text and its length in bytes.
struct Utf8Character {
  char32_t codePoint = 0;  ///< U+FFFD for invalid bytes
  std::size_t size = 0;    ///< bytes; 0 at the end of the text, or at its start for `previous`
};

/// Iterates over UTF-8 text in both directions, by ICU's rules. The text may be invalid; nothing here fails.
struct Utf8 {
  [[nodiscard]] static bool isAscii(std::string_view text);
  /// The character that starts at byte `at`.
  [[nodiscard]] static Utf8Character next(std::string_view text, std::size_t at = 0);
  /// The longest start of the text that has no more bytes than that and splits no character.
  [[nodiscard]] static std::string_view prefix(std::string_view text, std::size_t bytes);
  /// The character that ends just before byte `at`.
  [[nodiscard]] static Utf8Character previous(std::string_view text, std::size_t at);
};

}  // namespace tilwin
