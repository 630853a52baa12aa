#include "platform/x11/windows/WindowIds.h"

#include <algorithm>
#include <iterator>

namespace tilwin::x11 {

std::int64_t WindowIds::idOf(xcb_window_t window, std::uint32_t process) {
  auto& issued = issued_[window];
  if (issued.id != 0 && issued.process == process) return issued.id;
  windows_.erase(issued.id);
  issued = {next_++, process};
  windows_[issued.id] = window;
  return issued.id;
}

std::optional<xcb_window_t> WindowIds::windowOf(std::int64_t id) const {
  const auto found = windows_.find(id);
  return found == windows_.end() ? std::nullopt : std::optional(found->second);
}

std::vector<xcb_window_t> WindowIds::windows() const {
  std::vector<xcb_window_t> result;
  std::ranges::transform(issued_, std::back_inserter(result), [](const auto& entry) { return entry.first; });
  return result;
}

void WindowIds::forget(xcb_window_t window) {
  const auto found = issued_.find(window);
  if (found == issued_.end()) return;
  windows_.erase(found->second.id);
  issued_.erase(found);
}

void WindowIds::keepOnly(std::span<const xcb_window_t> open) {
  std::erase_if(issued_, [&](const auto& entry) {
    const bool gone = std::ranges::find(open, entry.first) == open.end();
    if (gone) windows_.erase(entry.second.id);
    return gone;
  });
}

}  // namespace tilwin::x11
