#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// The keys of a server's keyboard, found by symbol or by position.
class Keyboard {
public:
  explicit Keyboard(XConnection& connection) : connection_(connection) {}

  /// The key with this unshifted symbol in the first layout: "a", "7", "Left", "Return", "BackSpace", "minus"
  /// or "-", "Control", "Alt", "Shift", "Super", "F5", ...; or, as "<AC01>", the key at that position. Throws
  /// HarnessError if there is none.
  xcb_keycode_t named(const std::string& name);

  /// The key at a position, by its XKB name: "AC01" is A on an American keyboard, whatever the layout. Throws
  /// HarnessError if there is none.
  xcb_keycode_t at(const std::string& position);

  /// The keys of "Control+Alt+Left", modifiers first.
  std::vector<xcb_keycode_t> chord(const std::string& keys);

  /// The modifier bits (core protocol) that a key sets while it is down; 0 for an ordinary key.
  std::uint16_t modifier(xcb_keycode_t key);

private:
  XConnection& connection_;
};

}  // namespace tilwin::desktop
