#pragma once

#include "core/geometry/Rect.h"
#include "platform/x11/windows/WindowReader.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Asks the window manager to end the maximised or full-screen state of a window; sends nothing if it has
/// neither. The caller flushes the connection. Source: EWMH, _NET_WM_STATE.
void requestRelease(const X11Connection& x, const WindowSnapshot& window);

/// Asks the window manager to move and resize the window, in one message, so that it has this frame in
/// points, rounded to whole pixels. The caller flushes the connection. Source: EWMH, _NET_MOVERESIZE_WINDOW.
void requestFrame(const X11Connection& x, const WindowSnapshot& window, const Rect& frame);

}  // namespace tilwin::x11
