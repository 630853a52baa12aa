#include "tests/macos/c/objects/Utf16.h"

namespace tilwin::macos::c {
namespace {

constexpr char32_t firstBeyond = 0x10000;

bool isHigh(char16_t unit) { return unit >= 0xd800 && unit <= 0xdbff; }
bool isLow(char16_t unit) { return unit >= 0xdc00 && unit <= 0xdfff; }

/// One character in UTF-8.
std::string bytesOf(char32_t character) {
  const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
  const auto tail = [&](int shift) { return byte(0x80 | ((character >> shift) & 0x3f)); };
  if (character < 0x80) return {byte(character)};
  if (character < 0x800) return {byte(0xc0 | character >> 6), tail(0)};
  if (character < firstBeyond) return {byte(0xe0 | character >> 12), tail(6), tail(0)};
  return {byte(0xf0 | character >> 18), tail(12), tail(6), tail(0)};
}

}  // namespace

void appendUtf16(std::u16string& to, char32_t character) {
  if (character < firstBeyond) {
    to += static_cast<char16_t>(character);
    return;
  }
  const char32_t rest = character - firstBeyond;
  to += static_cast<char16_t>(0xd800 + (rest >> 10));
  to += static_cast<char16_t>(0xdc00 + (rest & 0x3ff));
}

ConvertedText utf8(std::u16string_view units, char lossByte, std::size_t capacity) {
  ConvertedText converted;
  while (converted.units < units.size()) {
    const char16_t unit = units[converted.units];
    const bool isPair =
        isHigh(unit) && converted.units + 1 < units.size() && isLow(units[converted.units + 1]);
    const bool isBroken = !isPair && (isHigh(unit) || isLow(unit));
    if (isBroken && lossByte == 0) break;
    const char32_t pair =
        isPair ? firstBeyond + ((unit - 0xd800U) << 10) + (units[converted.units + 1] - 0xdc00U) : unit;
    const std::string bytes = isBroken ? std::string(1, lossByte) : bytesOf(pair);
    if (converted.text.size() + bytes.size() > capacity) break;
    converted.text += bytes;
    converted.units += isPair ? 2 : 1;
  }
  return converted;
}

}  // namespace tilwin::macos::c
