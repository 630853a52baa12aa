#pragma once

#include <cstddef>
#include <string_view>

namespace tilwin {

/// Where words begin and end in UTF-8 text, as `\b` has it in regular expressions (Unicode UTS #18, simple
/// word boundaries, in ICU's reading): letters, marks, decimal digits, connecting punctuation and the two
/// joiners make words; marks and format characters never stand apart from the character before them.
struct WordBoundary {
  /// `place` is an offset in bytes, at the start of a character or at the end of the text.
  [[nodiscard]] static bool isAt(std::string_view text, std::size_t place);
};

}  // namespace tilwin
