#include "core/doctor/KnownManagers.h"

#include <algorithm>
#include <array>

#include "core/support/UnicodeText.h"

namespace tilwin {
namespace {

// The first that fits wins: marco calls itself "Metacity (Marco)", muffin "Mutter (Muffin)".
constexpr std::array knownManagers = std::to_array<KnownManager>({
    {"openbox", "openbox", "rc.xml", "", ""},
    {"xfwm4", "xfwm4", "Xfce's settings (Window Manager, Keyboard)",
     "Xfce's settings (Keyboard, Application Shortcuts)",
     "Xfce's settings (Window Manager Tweaks, Accessibility)"},
    {"marco", "marco", "gsettings (org.mate.Marco.global-keybindings and window-keybindings)",
     "MATE's settings (Keyboard Shortcuts)", "MATE's settings (Windows, Placement)"},
    {"metacity", "metacity", "gsettings (org.gnome.desktop.wm.keybindings)",
     "the keyboard settings of your desktop", "gsettings (org.gnome.metacity edge-tiling)"},
    {"muffin", "muffin", "Cinnamon's settings (Keyboard, Shortcuts)", "",
     "Cinnamon's settings (Window Tiling)"},
    {"gnome shell", "GNOME Shell", "gsettings (org.gnome.desktop.wm.keybindings)",
     "GNOME's settings (Keyboard, Custom Shortcuts)", "gsettings (org.gnome.mutter edge-tiling)"},
    {"mutter", "mutter", "gsettings (org.gnome.desktop.wm.keybindings)",
     "the keyboard settings of your desktop", "gsettings (org.gnome.mutter edge-tiling)"},
    {"kwin", "kwin", "System Settings (Shortcuts)", "", "System Settings (Screen Edges)"},
    {"icewm", "icewm", "~/.icewm/preferences", "~/.icewm/keys", ""},
    {"fluxbox", "fluxbox", "~/.fluxbox/keys", "", ""},
    {"jwm", "jwm", "~/.jwmrc", "", ""},
    {"i3", "i3", "~/.config/i3/config", "", ""},
    {"herbstluftwm", "herbstluftwm", "~/.config/herbstluftwm/autostart", "", ""},
    {"bspwm", "bspwm", "~/.config/sxhkd/sxhkdrc", "", ""},
    {"awesome", "awesome", "~/.config/awesome/rc.lua", "", ""},
    {"window maker", "Window Maker", "WPrefs (Keyboard Shortcut Preferences)",
     "WPrefs (Applications Menu Definition)", ""},
    {"compiz", "compiz", "the CompizConfig Settings Manager", "", "the CompizConfig Settings Manager (Grid)"},
});

constexpr std::string_view desktopsUse = "its desktops";
constexpr std::string_view carryingUse = "moving windows to its desktops";
constexpr std::string_view emptyingUse = "showing the desktop";

/// A default of the manager, as its packages ship it.
struct KeyUse {
  std::string_view manager;
  std::string_view keys;  ///< several, between spaces
  std::string_view use;
};

constexpr std::array keyUses = std::to_array<KeyUse>({
    {"openbox", "ctrl+alt+left ctrl+alt+right ctrl+alt+up ctrl+alt+down", desktopsUse},
    {"xfwm4", "ctrl+alt+left ctrl+alt+right ctrl+alt+up ctrl+alt+down", desktopsUse},
    {"xfwm4", "ctrl+alt+shift+left ctrl+alt+shift+right ctrl+alt+shift+up", carryingUse},
    {"xfwm4", "ctrl+alt+d", emptyingUse},
    {"metacity", "ctrl+alt+left ctrl+alt+right ctrl+alt+up ctrl+alt+down", desktopsUse},
    {"metacity", "ctrl+alt+shift+left ctrl+alt+shift+right ctrl+alt+shift+up ctrl+alt+shift+down",
     carryingUse},
    {"marco", "ctrl+alt+left ctrl+alt+right ctrl+alt+up ctrl+alt+down", desktopsUse},
    {"marco", "ctrl+alt+shift+left ctrl+alt+shift+right ctrl+alt+shift+up ctrl+alt+shift+down", carryingUse},
    {"marco", "ctrl+alt+d", emptyingUse},
    {"icewm", "ctrl+alt+left ctrl+alt+right ctrl+alt+down", desktopsUse},
    {"icewm", "ctrl+alt+1 ctrl+alt+2 ctrl+alt+3 ctrl+alt+4 ctrl+alt+=", desktopsUse},
    {"icewm", "ctrl+alt+shift+left ctrl+alt+shift+right ctrl+alt+shift+down", carryingUse},
    {"icewm", "ctrl+alt+shift+= ctrl+alt+shift+-", carryingUse},
    {"icewm", "ctrl+alt+d", emptyingUse},
    {"fluxbox", "ctrl+alt+left ctrl+alt+right", desktopsUse},
});

}  // namespace

KnownManager KnownManagers::named(std::string_view announced) {
  const std::string lower = UnicodeText::lowerCased(announced);
  const auto* const found = std::ranges::find_if(knownManagers, [&](const KnownManager& each) {
    return lower.find(each.announced) != std::string::npos;
  });
  return found == knownManagers.end() ? KnownManager{} : *found;
}

std::string_view KnownManagers::use(const KnownManager& manager, std::string_view keys) {
  for (const KeyUse& row : keyUses) {
    if (row.manager != manager.name || manager.name.empty()) continue;
    const auto all = UnicodeText::words(row.keys);
    if (std::ranges::find(all, keys) != all.end()) return row.use;
  }
  return {};
}

}  // namespace tilwin
