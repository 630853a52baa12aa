#pragma once

#include "tests/desktop/harness/ChildProcess.h"

namespace tilwin::contract {

enum class PanelLook { light, dark };

/// tint2, a panel with an XEmbed tray at the bottom of the screen, with icons of this many pixels. Returns at
/// once.
[[nodiscard]] desktop::ChildProcess startTint2(PanelLook look = PanelLook::dark, int iconSide = 22);

/// xfce4-panel, which shows StatusNotifierItems and has an XEmbed tray too, at the top of the screen. Returns
/// at once.
[[nodiscard]] desktop::ChildProcess startXfcePanel(PanelLook look = PanelLook::dark);

}  // namespace tilwin::contract
