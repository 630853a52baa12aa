#include "platform/x11/input/HeldKeys.h"

#include <utility>

namespace tilwin::x11 {

bool HeldKeys::press(xcb_keycode_t key, xcb_timestamp_t at) {
  const auto [entry, isNew] = down_.try_emplace(key, at);
  // Unsigned on purpose: the server's clock starts again from zero.
  const xcb_timestamp_t silence = at - std::exchange(entry->second, at);
  const bool isPress = isNew || silence >= longestSilence;
  if (isPress && grabbing_ == 0) grabbing_ = key;
  return isPress;
}

/// The grab lasts until the key that activated it is released. Releases of other keys after that do not reach
/// this program, so it forgets them all.
void HeldKeys::release(xcb_keycode_t key) {
  down_.erase(key);
  if (key != grabbing_) return;
  grabbing_ = 0;
  down_.clear();
}

}  // namespace tilwin::x11
