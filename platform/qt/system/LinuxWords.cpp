#include "platform/qt/system/LinuxWords.h"

#include <array>

namespace tilwin::qt {
namespace {

// The first that fits wins, so what contains another comes before it.
constexpr std::array linuxWords = std::to_array<Wording::Word>({
    // The desktop and its parts
    {"open System Settings, General, Login Items, and allow it",
     "open its list of programs started at login, and allow it"},
    {"Move the app to the Applications folder and try again",
     "Check that your autostart folder can be written to, and try again"},
    {"Turn off “Drag windows to screen edges to tile” in Desktop & Dock",
     "Turn off edge tiling in the settings of your window manager"},
    {"Open Desktop & Dock settings", "Open the settings of your desktop"},
    {"macOS", "Your desktop"},
    {"this Mac", "this computer"},
    {"your Mac", "your computer"},
    {"menu bar", "panel"},
    {"in Finder", "in the file manager"},
    // What desktops use shortcuts for
    {"Spotlight", "App search"},
    {"Finder search", "File search"},
    {"Mission Control", "Window overview"},
    {"App Exposé", "Windows of one app"},
    {"Move a Space left", "Workspace to the left"},
    {"Move a Space right", "Workspace to the right"},
    // Keys
    {"Control-", "Ctrl+"},
    {"Option-", "Alt+"},
    {"Shift-", "Shift+"},
    {"Command-", "Super+"},
    {"Control", "Ctrl"},
    {"Option", "Alt"},
    {"Command", "Super"},
});

constexpr std::array linuxKeys = std::to_array<Wording::Word>({
    {"⌃", "Ctrl+"},
    {"⌥", "Alt+"},
    {"⇧", "Shift+"},
    {"⌘", "Super+"},
    {"←", "Left"},
    {"→", "Right"},
    {"↑", "Up"},
    {"↓", "Down"},
    {"↩", "Enter"},
    {"Keypad ↩", "Keypad Enter"},
    {"⌫", "Backspace"},
    {"⌦", "Delete"},
    {"⎋", "Esc"},
    {"⇥", "Tab"},
});

}  // namespace

Wording LinuxWords::wording() const { return {.words = linuxWords, .keys = linuxKeys}; }

}  // namespace tilwin::qt
