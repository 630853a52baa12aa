#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tilwin {

/// A universally unique identifier of 128 bits (RFC 4122).
struct Uuid {
  std::array<std::uint8_t, 16> bytes{};

  // Named, as not every standard library can compare arrays this way, and the compiler then does it with `<`.
  std::strong_ordering operator<=>(const Uuid&) const = default;

  /// A new random identifier (version 4).
  [[nodiscard]] static Uuid random();
  /// Parses the hyphenated form, in upper or lower case. Returns nothing for any other text.
  [[nodiscard]] static std::optional<Uuid> parse(std::string_view text);
  /// Upper-case hyphenated text, 36 characters.
  [[nodiscard]] std::string text() const;
};

}  // namespace tilwin

template <>
struct std::hash<tilwin::Uuid> {
  std::size_t operator()(const tilwin::Uuid& uuid) const noexcept;
};
