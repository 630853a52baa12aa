#include "platform/x11/windows/PulledWindow.h"

#include "core/geometry/Rect.h"
#include "platform/x11/windows/WindowRequests.h"
#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

constexpr std::uint16_t anyButton = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
/// In points. Metacity wants six times as much as begins a drag.
constexpr std::int16_t farAway = 400;

}  // namespace

bool PulledWindow::begin(xcb_window_t window) {
  if (window_ != XCB_WINDOW_NONE) return false;
  const auto pointer =
      Pending<xcb_query_pointer_reply>(x_.get(), xcb_query_pointer(x_.get(), x_.root())).collect();
  if (!pointer || (pointer->mask & anyButton) != 0) return false;
  window_ = window;
  isForth_ = false;
  forth_ = pointer->root_x < farAway ? 1 : -1;
  const int fromY = pointer->root_y < farAway ? pointer->root_y + farAway : pointer->root_y - farAway;
  requestDrag(x_, window, {static_cast<double>(pointer->root_x), static_cast<double>(fromY)});
  x_.flush();
  return true;
}

void PulledWindow::nudge() {
  const auto by = static_cast<std::int16_t>(isForth_ ? -forth_ : forth_);
  xcb_warp_pointer(x_.get(), XCB_WINDOW_NONE, XCB_WINDOW_NONE, 0, 0, 0, 0, by, 0);
  x_.flush();
  isForth_ = !isForth_;
}

void PulledWindow::end() {
  if (window_ == XCB_WINDOW_NONE) return;
  requestDragEnd(x_, window_);
  if (isForth_) nudge();
  x_.flush();
  window_ = XCB_WINDOW_NONE;
}

}  // namespace tilwin::x11
