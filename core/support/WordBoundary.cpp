#include "core/support/WordBoundary.h"

#include <unicode/uchar.h>

#include <cstdint>

#include "core/support/Utf8.h"

namespace tilwin {
namespace {

constexpr char32_t zeroWidthNonJoiner = 0x200C;
constexpr char32_t zeroWidthJoiner = 0x200D;
constexpr std::uint32_t wordCategories = U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK;

constexpr bool isAsciiWordCharacter(char32_t character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || character == '_';
}

bool isWordCharacter(char32_t character) {
  if (character < 0x80) return isAsciiWordCharacter(character);
  const auto point = static_cast<UChar32>(character);
  return character == zeroWidthNonJoiner || character == zeroWidthJoiner ||
         u_hasBinaryProperty(point, UCHAR_ALPHABETIC) != 0 || (U_GET_GC_MASK(point) & wordCategories) != 0;
}

bool joinsTheCharacterBefore(char32_t character) {
  if (character < 0x80) return false;
  const auto point = static_cast<UChar32>(character);
  return u_hasBinaryProperty(point, UCHAR_GRAPHEME_EXTEND) != 0 || u_charType(point) == U_FORMAT_CHAR;
}

bool endsWithWordCharacter(std::string_view text) {
  for (auto last = Utf8::previous(text, text.size()); last.size > 0;
       last = Utf8::previous(text, text.size())) {
    if (!joinsTheCharacterBefore(last.codePoint)) return isWordCharacter(last.codePoint);
    text.remove_suffix(last.size);
  }
  return false;
}

}  // namespace

bool WordBoundary::isAt(std::string_view text, std::size_t place) {
  const Utf8Character next = Utf8::next(text, place);
  if (next.size > 0 && joinsTheCharacterBefore(next.codePoint)) return false;
  const bool isWordNext = next.size > 0 && isWordCharacter(next.codePoint);
  return isWordNext != endsWithWordCharacter(text.substr(0, place));
}

}  // namespace tilwin
