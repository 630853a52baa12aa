#pragma once

#include "core/geometry/Rect.h"
#include "platform/x11/windows/WindowReader.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Asks the window manager to release a maximised or full-screen window from that state. Source: EWMH,
/// _NET_WM_STATE.
void requestRelease(const X11Connection& x, const WindowSnapshot& window);

/// Asks the window manager to move and resize the window, position and size in one message. Source: EWMH,
/// _NET_MOVERESIZE_WINDOW.
void requestFrame(const X11Connection& x, const WindowSnapshot& window, const Rect& frame);

}  // namespace tilwin::x11
