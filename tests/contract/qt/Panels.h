#pragma once

#include "tests/desktop/harness/ChildProcess.h"

namespace tilwin::contract {

enum class PanelLook { light, dark };

/// tint2, a panel with an XEmbed tray at the bottom of the screen. Returns at once.
[[nodiscard]] desktop::ChildProcess startTint2(PanelLook look = PanelLook::dark);

}  // namespace tilwin::contract
