#pragma once

#include <optional>

#include "core/geometry/Point.h"
#include "platform/x11/X11Connection.h"

namespace tilwin::x11 {

/// The managed window that takes a click at this point, be it on its decoration or inside. Nothing where that
/// is no managed window: the desktop's background, a menu. Sources: X11 core protocol, TranslateCoordinates,
/// which goes by input shapes; EWMH, _NET_CLIENT_LIST.
[[nodiscard]] std::optional<xcb_window_t> managedWindowAt(const X11Connection& x, Point at);

}  // namespace tilwin::x11
