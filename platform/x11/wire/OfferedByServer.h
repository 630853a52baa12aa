#pragma once

#include "platform/x11/wire/ServerNeeds.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Asks the server and its window manager what they offer. An extension that is missing has version 0.0.
/// Sources: the query requests of the extensions; EWMH, _NET_SUPPORTING_WM_CHECK and _NET_SUPPORTED.
[[nodiscard]] ServerNeeds offeredBy(const X11Connection& connection);

}  // namespace tilwin::x11
