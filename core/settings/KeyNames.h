#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/settings/HotKeySpec.h"

namespace tilwin {

/// Short names of keys for buttons and menus.
struct KeyNames {
  struct Entry {
    std::uint32_t keyCode;
    std::string_view name;
  };

  [[nodiscard]] static std::span<const Entry> table();
  /// A key without a name of its own is called "Key" and its code.
  [[nodiscard]] static std::string name(std::uint32_t keyCode);
  /// Modifier symbols in the order Control, Option, Shift, Command, then the key.
  [[nodiscard]] static std::string describe(const HotKeySpec& spec);
};

}  // namespace tilwin
