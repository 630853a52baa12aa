#pragma once

#include <optional>

#include "core/geometry/Rect.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The topmost managed window at this point of the root window, decoration included; nothing if there is
/// none. Skips unmanaged windows, such as the one that some window managers lay over the whole screen while a
/// window is moved. Sources: X11 core protocol, TranslateCoordinates, which respects input shapes; EWMH,
/// _NET_CLIENT_LIST.
[[nodiscard]] std::optional<xcb_window_t> managedWindowAt(const X11Connection& x, Point at);

}  // namespace tilwin::x11
