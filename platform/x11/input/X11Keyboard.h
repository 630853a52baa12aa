#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "core/settings/HotKeySpec.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// A key combination as this server's keyboard has it.
struct KeyChord {
  xcb_keycode_t keycode = 0;
  std::uint16_t modifiers = 0;

  auto operator<=>(const KeyChord&) const = default;
};

/// Where this server's keyboard has the keys and modifiers that hot keys are made of, at the time of reading.
/// Sources: X Keyboard Extension, key names; X11 core protocol, modifier mapping.
class X11Keyboard {
public:
  X11Keyboard() = default;
  [[nodiscard]] static X11Keyboard read(const X11Connection& x);

  bool operator==(const X11Keyboard&) const = default;

  /// Nothing when this keyboard lacks the key or one of the modifiers.
  [[nodiscard]] std::optional<KeyChord> chordFor(const HotKeySpec& spec) const;
  /// Every combination of the lock keys (Caps Lock, Num Lock, Scroll Lock), none included: what has to be
  /// grabbed beside a chord's own modifiers so that they never get in its way.
  [[nodiscard]] std::vector<std::uint16_t> lockCombinations() const;
  /// The modifiers of an event that make up a chord, locks and pointer buttons taken out.
  [[nodiscard]] std::uint16_t chordModifiers(std::uint16_t state) const;

private:
  std::map<std::uint32_t, xcb_keycode_t> keycodes_;   ///< by stored key code
  std::map<std::uint32_t, std::uint16_t> modifiers_;  ///< by HotKeySpec bit
  std::uint16_t locks_ = XCB_MOD_MASK_LOCK;
};

}  // namespace tilwin::x11
