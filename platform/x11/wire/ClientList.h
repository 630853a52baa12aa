#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <span>
#include <vector>

#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The windows that the window manager manages, oldest first; empty if it does not list them. At most
/// `mostWindows`: anybody can write such a list, and each window in it costs some requests. One round trip.
/// Source: EWMH, _NET_CLIENT_LIST.
inline constexpr std::uint32_t mostWindows = 1024;
[[nodiscard]] std::vector<xcb_window_t> managedWindows(const X11Connection& x);

/// The same windows, topmost first. Source: EWMH, _NET_CLIENT_LIST_STACKING.
[[nodiscard]] std::vector<xcb_window_t> managedWindowsFromTheTop(const X11Connection& x);

/// Those of the windows that are on the present workspace or on all of them, in their order. One round trip.
/// Source: EWMH, _NET_CURRENT_DESKTOP, _NET_WM_DESKTOP.
[[nodiscard]] std::vector<xcb_window_t> onThisWorkspace(const X11Connection& x,
                                                        std::span<const xcb_window_t> windows);

}  // namespace tilwin::x11
