#pragma once

#include "tests/desktop/harness/Panel.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::contract {

/// The private desktop on which this program's own Qt windows appear: a real X server, a window manager and a
/// session bus, for real mouse and keyboard input. Started by the main function of the program.
[[nodiscard]] desktop::Session& qtDesktop();

using desktop::Panel;
using desktop::PanelLook;

/// Starts a panel with nothing but status icons on it.
[[nodiscard]] desktop::ChildProcess startPlain(Panel panel, PanelLook look = PanelLook::dark,
                                               int iconSide = 22);

}  // namespace tilwin::contract
