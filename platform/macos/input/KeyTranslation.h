#pragma once

#include <cstdint>

namespace tilwin::macos {

/// The modifiers of a key event as a combination has them: the bits of `HotKeySpec` (Carbon's) for the flags
/// of NSEvent. Flags that are part of no combination, such as Caps Lock, the numeric pad or Fn, are left out.
/// Source: NSEvent.ModifierFlags, Events.h.
[[nodiscard]] std::uint32_t hotKeyModifiers(std::uint64_t eventModifierFlags);

}  // namespace tilwin::macos
