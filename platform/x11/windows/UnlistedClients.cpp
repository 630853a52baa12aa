#include "platform/x11/windows/UnlistedClients.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/x11/wire/ClientList.h"
#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

std::vector<xcb_window_t> UnlistedClients::openOf(std::span<const xcb_window_t> unlisted) {
  const auto asked = unlisted.first(std::min<std::size_t>(unlisted.size(), mostWindows));
  for (const auto window : watched_) {
    if (std::ranges::find(asked, window) == asked.end())
      x_.masks().select(this, window, XCB_EVENT_MASK_NO_EVENT);
  }
  watched_.clear();
  std::vector<std::pair<xcb_window_t, Pending<xcb_get_geometry_reply>>> questions;
  questions.reserve(asked.size());
  for (const auto window : asked) {
    // Before the question, so that no end goes unnoticed between the two.
    x_.masks().select(this, window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    questions.emplace_back(window,
                           Pending<xcb_get_geometry_reply>(x_.get(), xcb_get_geometry(x_.get(), window)));
  }
  for (auto& [window, question] : questions) {
    if (question.collect()) {
      watched_.insert(window);
    } else {
      x_.masks().forget(window);
    }
  }
  return {watched_.begin(), watched_.end()};
}

}  // namespace tilwin::x11
