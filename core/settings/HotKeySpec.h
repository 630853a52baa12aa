#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "core/support/Hash.h"

namespace tilwin {

/// A key combination. Key codes are Carbon's virtual key codes, which name positions on an ANSI keyboard (0
/// is the A key, 123 the left arrow); modifiers are a sum of Carbon's modifier bits.
struct HotKeySpec {
  static constexpr std::uint32_t cmd = 0x100;
  static constexpr std::uint32_t shift = 0x200;
  static constexpr std::uint32_t option = 0x800;
  static constexpr std::uint32_t control = 0x1000;

  std::uint32_t keyCode = 0;
  std::uint32_t modifiers = 0;

  bool operator==(const HotKeySpec&) const = default;
};

}  // namespace tilwin

template <>
struct std::hash<tilwin::HotKeySpec> {
  std::size_t operator()(const tilwin::HotKeySpec& spec) const noexcept {
    return tilwin::hashOf(spec.keyCode, spec.modifiers);
  }
};
