#include "platform/x11/wire/WindowEventMasks.h"

#include <utility>

namespace tilwin::x11 {

namespace {

/// What is selected may not be what was asked for.
constexpr std::uint32_t unknown = ~std::uint32_t{XCB_EVENT_MASK_NO_EVENT};

}  // namespace

void WindowEventMasks::select(const void* part, xcb_window_t window, std::uint32_t mask) {
  // The number may meanwhile be that of a new window, of which nothing is selected.
  const std::uint32_t before = window == root_ ? maskOf(window) : unknown;
  if (mask != XCB_EVENT_MASK_NO_EVENT) {
    wanted_[window][part] = mask;
  } else if (const auto known = wanted_.find(window); known != wanted_.end()) {
    known->second.erase(part);
    if (known->second.empty()) wanted_.erase(known);
  }
  apply(window, before);
}

void WindowEventMasks::forget(xcb_window_t window) {
  wanted_.erase(window);
  muted_.erase(window);
}

void WindowEventMasks::mute(xcb_window_t window) {
  const std::uint32_t before = maskOf(window);
  if (before == XCB_EVENT_MASK_NO_EVENT || !muted_.insert(window).second) return;
  apply(window, before);
  xcb_flush(connection_);
}

void WindowEventMasks::unmute() {
  for (const auto window : std::exchange(muted_, {})) apply(window, unknown);
}

std::uint32_t WindowEventMasks::maskOf(xcb_window_t window) const {
  const auto known = wanted_.find(window);
  if (known == wanted_.end()) return XCB_EVENT_MASK_NO_EVENT;
  std::uint32_t all = XCB_EVENT_MASK_NO_EVENT;
  for (const auto& [part, mask] : known->second) all |= mask;
  if (!muted_.contains(window)) return all;
  // Whoever hears of the root's structure also gets what clients send to everybody. Of other windows the end
  // must be heard.
  constexpr std::uint32_t properties = XCB_EVENT_MASK_PROPERTY_CHANGE;
  constexpr std::uint32_t structure = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  return all & ~(window == root_ ? properties | structure : properties);
}

void WindowEventMasks::apply(xcb_window_t window, std::uint32_t before) const {
  const std::uint32_t mask = maskOf(window);
  if (mask != before) xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &mask);
}

}  // namespace tilwin::x11
