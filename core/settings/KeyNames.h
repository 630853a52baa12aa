#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/settings/HotKeySpec.h"
#include "core/settings/Wording.h"

namespace tilwin {

/// Short names of keys, for buttons, menus and the log.
struct KeyNames {
  struct Entry {
    std::uint32_t keyCode;
    std::string_view name;
  };

  /// All keys that have a name.
  [[nodiscard]] static std::span<const Entry> table();
  /// The name from the table, or "Key" and the code for any other key.
  [[nodiscard]] static std::string name(std::uint32_t keyCode);
  /// Modifier symbols in the order Control, Option, Shift, Command, then the name of the key: "⌃⌥←".
  [[nodiscard]] static std::string describe(const HotKeySpec& spec, const Wording& wording = {});
};

}  // namespace tilwin
