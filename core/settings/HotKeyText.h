#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/settings/HotKeySpec.h"

namespace tilwin {

/// Shortcuts as scripts write them, the same on every desktop: "ctrl+alt+left". Keys are positions on an ANSI
/// keyboard, as in `HotKeySpec`.
struct HotKeyText {
  /// Modifiers in the order ctrl, alt, shift, super, then the key, in lower case. A key without a name is
  /// "key" and its code.
  [[nodiscard]] static std::string write(const HotKeySpec& spec);
  /// Reads what `write` writes, and control, option, cmd, command and win for the modifiers, enter, esc and
  /// del for keys, in any case. Nothing for anything else, such as modifiers alone.
  [[nodiscard]] static std::optional<HotKeySpec> read(std::string_view text);
};

}  // namespace tilwin
