#pragma once

#include <cstdint>
#include <optional>

#include "platform/x11/windows/WindowReader.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The window that the user may be dragging: the one whose place was read last since the button went down.
/// The pointer and the place of this window are needed together, many times a second; `askAhead` puts the
/// question about the place into the round trip that reads the pointer.
class HeldWindow {
public:
  /// The connection must outlive this.
  explicit HeldWindow(const X11Connection& x) : x_(x) {}

  /// Asks where the held window stands, if one is held. The answer serves the next `frame`, unless an event
  /// comes in before.
  void askAhead();
  /// Where the window stands now, in at most one round trip; nothing when it is gone. It is held from now on.
  [[nodiscard]] std::optional<Rect> frame(xcb_window_t window);
  /// Nothing is held any longer. Returns what was; `XCB_WINDOW_NONE` for nothing.
  xcb_window_t letGo();

private:
  struct Question {
    xcb_window_t window;
    std::uint64_t generation;  ///< of the connection when it was asked
    PlaceQuestions place;
  };

  const X11Connection& x_;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  std::optional<Question> asked_;
};

}  // namespace tilwin::x11
