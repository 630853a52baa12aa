#pragma once

namespace tilwin::macos {

/// Gives the program a main menu. The program has no menu bar, but AppKit finds there the usual keys of text
/// fields and windows, such as Command-C. The shared NSApplication, which must exist, owns the menu. Main
/// thread only. Cannot fail. Sources: NSMenu, NSApplication (setMainMenu:).
void installMainMenu();

}  // namespace tilwin::macos
