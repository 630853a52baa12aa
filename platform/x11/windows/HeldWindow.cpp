#include "platform/x11/windows/HeldWindow.h"

#include <utility>

namespace tilwin::x11 {

void HeldWindow::askAhead() {
  if (window_ == XCB_WINDOW_NONE) return;
  asked_.emplace(Question{window_, x_.generation(), PlaceQuestions(x_, window_)});
}

std::optional<Rect> HeldWindow::frame(xcb_window_t window) {
  window_ = window;
  auto asked = std::exchange(asked_, std::nullopt);
  const bool isAnswered = asked && asked->window == window && asked->generation == x_.generation();
  return isAnswered ? asked->place.frame() : PlaceQuestions(x_, window).frame();
}

xcb_window_t HeldWindow::letGo() {
  asked_.reset();
  return std::exchange(window_, XCB_WINDOW_NONE);
}

}  // namespace tilwin::x11
