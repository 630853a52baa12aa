#include "platform/x11/windows/FocusHistory.h"

#include <algorithm>
#include <cstddef>

namespace tilwin::x11 {
namespace {

/// Enough for a panel, a menu and some dialogs in between.
constexpr std::size_t longest = 8;

}  // namespace

void FocusHistory::note(xcb_window_t window) {
  if (window == XCB_WINDOW_NONE) return;
  forget(window);
  windows_.insert(windows_.begin(), window);
  if (windows_.size() > longest) windows_.pop_back();
}

void FocusHistory::keepOnly(std::span<const xcb_window_t> open) {
  std::erase_if(windows_, [&](xcb_window_t window) { return std::ranges::find(open, window) == open.end(); });
}

void FocusHistory::forget(xcb_window_t window) { std::erase(windows_, window); }

}  // namespace tilwin::x11
