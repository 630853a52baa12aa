#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "core/settings/HotKeySpec.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// A key combination in terms of this server's keyboard.
struct KeyChord {
  xcb_keycode_t keycode = 0;
  std::uint16_t modifiers = 0;

  auto operator<=>(const KeyChord&) const = default;
};

/// Translates hot keys to the keycodes and modifier bits of this server's keyboard. A value; it does not
/// follow later changes of the keyboard. Sources: X Keyboard Extension, key names; X11 core protocol,
/// modifier mapping.
class X11Keyboard {
public:
  X11Keyboard() = default;
  /// Reads the keyboard in one round trip. What the server does not answer is missing in the result.
  [[nodiscard]] static X11Keyboard read(const X11Connection& x);

  bool operator==(const X11Keyboard&) const = default;

  /// The combination for a hot key; nothing if this keyboard lacks the key or one of the modifiers.
  [[nodiscard]] std::optional<KeyChord> chordFor(const HotKeySpec& spec) const;
  /// The key code of a physical key; nothing for a key that no hot key may have, such as a modifier.
  [[nodiscard]] std::optional<std::uint32_t> keyCodeOf(xcb_keycode_t key) const;
  /// Every combination of the lock keys (Caps Lock, Num Lock, Scroll Lock), including none. A chord must be
  /// grabbed with each of them, so that it works whatever lock is on.
  [[nodiscard]] std::vector<std::uint16_t> lockCombinations() const;
  /// The modifiers of a key event's state, without locks and pointer buttons.
  [[nodiscard]] std::uint16_t chordModifiers(std::uint16_t state) const;

private:
  std::map<std::uint32_t, xcb_keycode_t> keycodes_;   ///< by HotKeySpec key code
  std::map<std::uint32_t, std::uint16_t> modifiers_;  ///< by HotKeySpec modifier bit
  std::uint16_t locks_ = XCB_MOD_MASK_LOCK;
};

}  // namespace tilwin::x11
