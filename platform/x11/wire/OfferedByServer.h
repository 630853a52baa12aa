#pragma once

#include "platform/x11/wire/ServerNeeds.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// What this server and its window manager offer now, asked of them.
[[nodiscard]] ServerNeeds offeredBy(const X11Connection& connection);

}  // namespace tilwin::x11
