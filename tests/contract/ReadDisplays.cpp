#include "tests/contract/ReadDisplays.h"

#include <cstdlib>

namespace tilwin::x11 {

ReadDisplays::ReadDisplays(desktop::Session& session) {
  setenv("DISPLAY", session.server().display().c_str(), 1);
  x_.emplace(log_);
  displays_.emplace(*x_, queue_);
}

const std::vector<DisplayInfo>& ReadDisplays::current() {
  const desktop::XcbPtr<xcb_get_input_focus_reply_t> afterEvents(
      xcb_get_input_focus_reply(x_->get(), xcb_get_input_focus(x_->get()), nullptr));
  x_->dispatch();
  return displays_->current();
}

}  // namespace tilwin::x11
