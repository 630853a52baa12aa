#pragma once

#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

/// Panels that show status icons.
enum class Panel {
  tint2,  ///< XEmbed tray: the program draws its menu itself
  xfce,   ///< StatusNotifierItem host: the panel draws the menu; has an XEmbed tray too
};

enum class PanelLook { light, dark };

struct PanelOptions {
  PanelLook look = PanelLook::dark;
  /// Nothing but icons, so that nothing else on it ever changes. tint2's is short then, and xfce4-panel is at
  /// the top of the screen.
  bool isPlain = false;
  int iconSide = 22;  ///< in pixels; only tint2's can be chosen
};

/// Starts the panel along the bottom of the screen. Returns at once.
[[nodiscard]] ChildProcess startPanel(Session& session, Panel panel, const PanelOptions& options = {});

}  // namespace tilwin::desktop
