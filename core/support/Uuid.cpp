#include "core/support/Uuid.h"

#include <algorithm>
#include <random>

namespace tilwin {
namespace {

constexpr std::size_t textLength = 36;
constexpr std::string_view digits = "0123456789ABCDEF";

constexpr bool hyphenBefore(std::size_t byte) { return byte == 4 || byte == 6 || byte == 8 || byte == 10; }

std::optional<std::uint8_t> digitValue(char digit) {
  if (digit >= 'a' && digit <= 'f') digit = static_cast<char>(digit - 'a' + 'A');
  const std::size_t value = digits.find(digit);
  if (value == std::string_view::npos) return std::nullopt;
  return static_cast<std::uint8_t>(value);
}

}  // namespace

Uuid Uuid::random() {
  std::random_device source;
  std::uniform_int_distribution<unsigned> anyByte(0, 255);
  Uuid uuid;
  std::generate(uuid.bytes.begin(), uuid.bytes.end(),
                [&] { return static_cast<std::uint8_t>(anyByte(source)); });
  uuid.bytes[6] = static_cast<std::uint8_t>((uuid.bytes[6] & 0x0F) | 0x40);
  uuid.bytes[8] = static_cast<std::uint8_t>((uuid.bytes[8] & 0x3F) | 0x80);
  return uuid;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
  if (text.size() != textLength) return std::nullopt;
  Uuid uuid;
  std::size_t at = 0;
  for (std::size_t byte = 0; byte < uuid.bytes.size(); ++byte) {
    if (hyphenBefore(byte) && text[at++] != '-') return std::nullopt;
    const auto high = digitValue(text[at++]);
    const auto low = digitValue(text[at++]);
    if (!high || !low) return std::nullopt;
    uuid.bytes[byte] = static_cast<std::uint8_t>(*high << 4 | *low);
  }
  return uuid;
}

std::string Uuid::text() const {
  std::string result;
  result.reserve(textLength);
  for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
    if (hyphenBefore(byte)) result += '-';
    result += digits[bytes[byte] >> 4];
    result += digits[bytes[byte] & 0x0F];
  }
  return result;
}

}  // namespace tilwin

std::size_t std::hash<tilwin::Uuid>::operator()(const tilwin::Uuid& uuid) const noexcept {
  return std::hash<std::string_view>{}({reinterpret_cast<const char*>(uuid.bytes.data()), uuid.bytes.size()});
}
