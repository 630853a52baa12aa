#include "tests/desktop/harness/GrabbedKey.h"

#include <array>

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/Keyboard.h"

namespace tilwin::desktop {

namespace {

/// A key with its modifiers under every state of the locks, as grab requests take them.
struct Combination {
  xcb_keycode_t key = 0;
  std::array<std::uint32_t, 4> modifiers{};
};

Combination combination(XConnection& connection, const std::string& chord) {
  Keyboard keyboard(connection);
  const auto keys = keyboard.chord(chord);
  std::uint32_t held = 0;
  for (std::size_t i = 0; i + 1 < keys.size(); ++i) held |= keyboard.modifier(keys[i]);
  const std::uint32_t caps = keyboard.modifier(keyboard.named("Caps_Lock"));
  const std::uint32_t num = keyboard.modifier(keyboard.named("Num_Lock"));
  return {keys.back(), {held, held | caps, held | num, held | caps | num}};
}

/// False when another client has the combination under one of the locks.
bool grab(XConnection& connection, const std::string& chord) {
  const auto wanted = combination(connection, chord);
  bool free = true;
  for (const auto modifiers : wanted.modifiers) {
    const auto cookie =
        xcb_grab_key_checked(connection.get(), 1, connection.root(), static_cast<std::uint16_t>(modifiers),
                             wanted.key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XcbPtr<xcb_generic_error_t> error(xcb_request_check(connection.get(), cookie));
    free = free && !error;
  }
  return free;
}

}  // namespace

GrabbedKey::GrabbedKey(const std::string& display, const std::string& chord) : connection_(display) {
  if (!grab(connection_, chord)) throw HarnessError(chord + " is already taken");
}

bool keyIsGrabbed(const std::string& display, const std::string& chord) {
  XConnection connection(display);
  return !grab(connection, chord);
}

}  // namespace tilwin::desktop
