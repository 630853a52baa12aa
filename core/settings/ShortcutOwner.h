#pragma once

#include <variant>

#include "core/snap/SnapAction.h"
#include "core/support/Uuid.h"

namespace tilwin {

/// What a hot key triggers: an action, or the custom area with this id. Usable as a set element and a key of
/// hashed maps, as `std::hash` covers variants.
using ShortcutOwner = std::variant<SnapAction, Uuid>;

}  // namespace tilwin
