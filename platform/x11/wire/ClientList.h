#pragma once

#include <xcb/xcb.h>

#include <vector>

#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The windows that the window manager manages, oldest first; empty if it does not list them. One round trip.
/// Source: EWMH, _NET_CLIENT_LIST.
[[nodiscard]] std::vector<xcb_window_t> managedWindows(const X11Connection& x);

/// The same windows, topmost first. Source: EWMH, _NET_CLIENT_LIST_STACKING.
[[nodiscard]] std::vector<xcb_window_t> managedWindowsFromTheTop(const X11Connection& x);

}  // namespace tilwin::x11
