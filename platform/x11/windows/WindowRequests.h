#pragma once

#include "core/geometry/Rect.h"
#include "platform/x11/windows/WindowReader.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Asks the window manager to end the maximised or full-screen state of a window; sends nothing if it has
/// neither. The caller flushes the connection. Source: EWMH, _NET_WM_STATE.
void requestRelease(const X11Connection& x, const WindowSnapshot& window);

/// Asks the window manager to put the window into these states; sends nothing if there are none. The caller
/// flushes the connection. Source: EWMH, _NET_WM_STATE.
void requestStates(const X11Connection& x, xcb_window_t window, const FrameStates& states);

/// Asks the window manager to move and resize the window, in one message, so that it has this frame in
/// points, rounded to whole pixels, with this shape. With the gravity that the window gives itself: openbox
/// remembers positions by that one, whatever the message says. The caller flushes the connection. Source:
/// EWMH, _NET_MOVERESIZE_WINDOW.
void requestFrame(const X11Connection& x, const WindowSnapshot& window, const FrameShape& shape,
                  const Rect& frame);

/// The same, in the way in which the window's own client would ask: for a size within its limits, as some
/// window managers take it to know them. Source: ICCCM, 4.1.5 (ConfigureWindow).
void configureFrame(const X11Connection& x, const WindowSnapshot& window, const FrameShape& shape,
                    const Rect& frame);

/// Asks the window manager to maximise the window vertically, and to end that. kwin then forgets that it had
/// tiled the window, which no other request makes it do. The caller flushes the connection.
void requestUntiling(const X11Connection& x, xcb_window_t window);

/// Tells the window manager that the first button was pressed at this point of the root window to move the
/// window by it; and that this is called off. The caller flushes the connection. Source: EWMH,
/// _NET_WM_MOVERESIZE.
void requestDrag(const X11Connection& x, xcb_window_t window, Point from);
void requestDragEnd(const X11Connection& x, xcb_window_t window);

}  // namespace tilwin::x11
