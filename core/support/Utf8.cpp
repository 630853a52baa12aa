#include "core/support/Utf8.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tilwin {
namespace {

// No character is longer, so ICU never needs to see more bytes than this.
constexpr std::size_t longest = U8_MAX_LENGTH;

}  // namespace

bool Utf8::isAscii(std::string_view text) {
  constexpr std::uint64_t highBits = 0x8080808080808080;
  std::size_t at = 0;
  for (; at + sizeof(std::uint64_t) <= text.size(); at += sizeof(std::uint64_t)) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, text.data() + at, sizeof eight);
    if ((eight & highBits) != 0) return false;
  }
  return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

Utf8Character Utf8::next(std::string_view text, std::size_t at) {
  if (at >= text.size()) return {};
  const std::string_view window = text.substr(at, longest);
  const auto length = static_cast<std::int32_t>(window.size());
  const char* const bytes = window.data();
  std::int32_t index = 0;
  UChar32 character = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // in ICU's macro
  U8_NEXT_OR_FFFD(bytes, index, length, character);
#pragma GCC diagnostic pop
  return {static_cast<char32_t>(character), static_cast<std::size_t>(index)};
}

std::string_view Utf8::prefix(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  std::size_t end = 0;
  while (end + next(text, end).size <= bytes) end += next(text, end).size;
  return text.substr(0, end);
}

Utf8Character Utf8::previous(std::string_view text, std::size_t at) {
  const std::size_t end = std::min(at, text.size());
  if (end == 0) return {};
  const std::size_t start = end > longest ? end - longest : 0;
  const std::string_view window = text.substr(start, end - start);
  const char* const bytes = window.data();
  auto index = static_cast<std::int32_t>(window.size());
  UChar32 character = 0;
  U8_PREV_OR_FFFD(bytes, 0, index, character);
  return {static_cast<char32_t>(character), window.size() - static_cast<std::size_t>(index)};
}

}  // namespace tilwin
