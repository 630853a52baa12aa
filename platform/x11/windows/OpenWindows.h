#pragma once

#include <xcb/xcb.h>

#include <algorithm>
#include <map>
#include <span>
#include <unordered_map>

namespace tilwin::x11 {

/// Erases what a map holds of other windows than these: the server may give their numbers to new ones.
template <typename ByWindow>
void keepOpen(ByWindow& entries, std::span<const xcb_window_t> open) {
  std::erase_if(entries,
                [&](const auto& entry) { return std::ranges::find(open, entry.first) == open.end(); });
}

}  // namespace tilwin::x11
