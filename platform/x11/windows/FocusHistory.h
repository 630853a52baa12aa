#pragma once

#include <xcb/xcb.h>

#include <span>
#include <vector>

namespace tilwin::x11 {

/// The windows that had the focus last. Older ones are forgotten.
class FocusHistory {
public:
  /// The window has the focus now; XCB_WINDOW_NONE is not kept.
  void note(xcb_window_t window);
  void forget(xcb_window_t window);
  /// Forgets all other windows: the server may give their numbers to new ones.
  void keepOnly(std::span<const xcb_window_t> open);
  /// Each window once.
  [[nodiscard]] const std::vector<xcb_window_t>& latestFirst() const { return windows_; }

private:
  std::vector<xcb_window_t> windows_;
};

}  // namespace tilwin::x11
