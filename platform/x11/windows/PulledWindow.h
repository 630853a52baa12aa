#pragma once

#include <cstdint>

#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Pulls a window out of a tile that its window manager ends only when a hand moves the window, as metacity
/// does. The manager is told that the pointer has begun to move the window, from a point far away; then the
/// pointer is moved by one point and back. Source: EWMH, _NET_WM_MOVERESIZE.
class PulledWindow {
public:
  /// The connection must outlive this.
  explicit PulledWindow(const X11Connection& x) : x_(x) {}
  PulledWindow(const PulledWindow&) = delete;
  PulledWindow& operator=(const PulledWindow&) = delete;
  ~PulledWindow() { end(); }

  /// Takes hold of the window. Does nothing and returns false while a button is down, as that is a hand at
  /// work, and while another window is held.
  [[nodiscard]] bool begin(xcb_window_t window);
  /// Moves the pointer by one point, forth or back. The manager may not yet hear of the first ones.
  void nudge();
  /// Lets go, with the pointer where it was; does nothing if no window is held.
  void end();
  [[nodiscard]] bool isHeld(xcb_window_t window) const { return window_ == window; }
  /// The window it holds; XCB_WINDOW_NONE if none.
  [[nodiscard]] xcb_window_t held() const { return window_; }

private:
  const X11Connection& x_;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  std::int16_t forth_ = 1;  ///< -1 near the right edge of the screen, where the pointer cannot go on
  bool isForth_ = false;
};

}  // namespace tilwin::x11
