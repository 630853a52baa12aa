#pragma once

#include <xcb/xcb.h>

#include <map>

namespace tilwin::x11 {

/// The keys held down while a passive grab of one of them is active; tells presses from their repetitions.
/// With detectable auto-repeat (X Keyboard Extension) a held key sends presses without releases in between.
class HeldKeys {
public:
  /// In milliseconds, longer than any delay before a held key repeats. After a longer silence a press is no
  /// repetition: the release was lost, for instance when the user switched to another console.
  static constexpr xcb_timestamp_t longestSilence = 5000;

  /// Whether this event is a press, and not the repetition of one.
  bool press(xcb_keycode_t key, xcb_timestamp_t at);
  void release(xcb_keycode_t key);

private:
  xcb_keycode_t grabbing_ = 0;                     ///< the key whose passive grab is active now; 0 for none
  std::map<xcb_keycode_t, xcb_timestamp_t> down_;  ///< keys held down, with the time of their last event
};

}  // namespace tilwin::x11
