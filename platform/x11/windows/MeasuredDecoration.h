#pragma once

#include "platform/x11/windows/Margins.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The decoration of a window whose window manager does not tell it: how far the child of the root that holds
/// the window reaches beyond its client area, borders included. Nothing around a window that is gone. One
/// round trip for each window in between and one for the child of the root, so commonly two.
[[nodiscard]] Margins measuredDecoration(const X11Connection& x, xcb_window_t window);

}  // namespace tilwin::x11
