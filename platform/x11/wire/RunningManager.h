#pragma once

#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The window that a window manager has named on the root to announce itself, or one before it has left
/// there; XCB_WINDOW_NONE if there is none. One round trip. Source: EWMH, _NET_SUPPORTING_WM_CHECK.
[[nodiscard]] xcb_window_t announcedManager(const X11Connection& x);

/// Whether a window manager runs. Two round trips. Source: EWMH, _NET_SUPPORTING_WM_CHECK.
[[nodiscard]] bool windowManagerRuns(const X11Connection& x);

}  // namespace tilwin::x11
