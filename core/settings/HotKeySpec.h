#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "core/support/Hash.h"

namespace tilwin {

/// A key combination. Key codes name positions on an ANSI keyboard (Carbon's virtual key codes: 0 is the key
/// of A, 123 the left arrow); modifiers are Carbon's hot-key bits.
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
