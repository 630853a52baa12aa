#pragma once

#include <unicode/stringpiece.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tilwin {

/// The text as ICU's string type; a view, so `text` must outlive it. Cut off after half a gigabyte: ICU's
/// lengths are signed 32-bit numbers, and case folding can triple the length.
inline icu::StringPiece icuPiece(std::string_view text) {
  constexpr std::size_t longest = std::size_t{1} << 29;
  return {text.data(), static_cast<std::int32_t>(std::min(text.size(), longest))};
}

}  // namespace tilwin
