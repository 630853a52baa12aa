#pragma once

#include <optional>

#include "core/geometry/Rect.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The uppermost managed window at this point, be the point on its decoration or inside. What no manager
/// looks after is seen through, such as the sheet that some managers lay over the screen while a window is
/// moved. Sources: X11 core protocol, TranslateCoordinates, which goes by input shapes; EWMH,
/// _NET_CLIENT_LIST.
[[nodiscard]] std::optional<xcb_window_t> managedWindowAt(const X11Connection& x, Point at);

}  // namespace tilwin::x11
