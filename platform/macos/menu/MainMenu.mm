#include "platform/macos/menu/MainMenu.h"

#import <AppKit/AppKit.h>

#include <array>
#include <span>

#include "platform/macos/support/Held.h"

namespace tilwin::macos {
namespace {

/// An item whose action goes to the focused view or its window. A capital key is pressed with Shift.
struct Command {
  NSString* title;
  NSString* action;
  NSString* key;
};

const std::array fileCommands{Command{@"Close Window", @"performClose:", @"w"}};

const std::array editCommands{
    Command{@"Undo", @"undo:", @"z"},   Command{@"Redo", @"redo:", @"Z"},
    Command{@"Cut", @"cut:", @"x"},     Command{@"Copy", @"copy:", @"c"},
    Command{@"Paste", @"paste:", @"v"}, Command{@"Select All", @"selectAll:", @"a"},
};

void addSubmenu(NSMenu* menu, NSString* title, std::span<const Command> commands) {
  const auto submenu = owned([[NSMenu alloc] initWithTitle:title]);
  for (const auto& command : commands) {
    [submenu.get() addItemWithTitle:command.title
                             action:NSSelectorFromString(command.action)
                      keyEquivalent:command.key];
  }
  const auto item = owned([[NSMenuItem alloc] initWithTitle:title action:nullptr keyEquivalent:@""]);
  [item.get() setSubmenu:submenu.get()];
  [menu addItem:item.get()];
}

}  // namespace

void installMainMenu() {
  const auto menu = owned([[NSMenu alloc] initWithTitle:@""]);
  // AppKit takes the first submenu for that of the application.
  addSubmenu(menu.get(), @"Tilwin", {});
  addSubmenu(menu.get(), @"File", fileCommands);
  addSubmenu(menu.get(), @"Edit", editCommands);
  [NSApp setMainMenu:menu.get()];
}

}  // namespace tilwin::macos
