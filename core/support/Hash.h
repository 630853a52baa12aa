#pragma once

#include <cstddef>
#include <functional>

namespace tilwin {

/// Combines the hashes of several values into one; the result depends on their order.
template <typename... Values>
[[nodiscard]] std::size_t hashOf(const Values&... values) noexcept {
  std::size_t seed = 0;
  const auto mix = [&seed](std::size_t hash) {
    seed ^= hash + 0x9e3779b97f4a7c15ULL + (seed << 6) + (seed >> 2);
  };
  (mix(std::hash<Values>{}(values)), ...);
  return seed;
}

}  // namespace tilwin
