#pragma once

#include <unicode/stringpiece.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tilwin {

/// The text as ICU takes it. ICU counts in 32 bits and folding can triple a text; what lies beyond half a
/// gigabyte is not looked at.
inline icu::StringPiece icuPiece(std::string_view text) {
  constexpr std::size_t longest = std::size_t{1} << 29;
  return {text.data(), static_cast<std::int32_t>(std::min(text.size(), longest))};
}

}  // namespace tilwin
