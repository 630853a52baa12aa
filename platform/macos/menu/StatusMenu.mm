#include "platform/macos/menu/StatusMenu.h"

#include <utility>

#include "platform/macos/menu/MenuDrawing.h"

@implementation TWMenuDelegate

- (void)menuNeedsUpdate:(NSMenu*)menu {
  (void)menu;
  onNeedsUpdate();
}

- (void)menuWillOpen:(NSMenu*)menu {
  (void)menu;
  onOpen();
}

- (void)menuDidClose:(NSMenu*)menu {
  (void)menu;
  onClose();
}

@end

namespace tilwin::macos {

StatusMenu::StatusMenu(MainQueue& queue, StatusItem::MenuMaker makeMenu, StatusItem::ChoiceHandler onChoice)
    : queue_(queue),
      makeMenu_(std::move(makeMenu)),
      onChoice_(std::make_shared<StatusItem::ChoiceHandler>(std::move(onChoice))),
      delegate_(owned([[TWMenuDelegate alloc] init])),
      menu_(owned([[NSMenu alloc] initWithTitle:@""])) {
  delegate_.get()->onNeedsUpdate = [this] { draw(); };
  delegate_.get()->onOpen = [this] { isOpen_ = true; };
  delegate_.get()->onClose = [this] {
    isOpen_ = false;
    reportOnceClosed();
  };
  // Not every implementation has the methods of this protocol optional.
  [menu_.get() setDelegate:static_cast<id>(delegate_.get())];
}

StatusMenu::~StatusMenu() {
  [menu_.get() setDelegate:nil];
  // Whoever holds the menu still must find nothing in it that calls this.
  drawMenu({}, menu_.get(), {});
}

/// Some implementations also ask for an update at each item that is added, and while the menu is open.
void StatusMenu::draw() {
  if (isDrawing_ || isOpen_) return;
  isDrawing_ = true;
  drawMenu(makeMenu_(), menu_.get(), [this](const MenuChoice& choice) {
    chosen_ = choice;
    reportOnceClosed();
  });
  isDrawing_ = false;
}

/// AppKit may send an item's action before or after it says that the menu has closed.
void StatusMenu::reportOnceClosed() {
  if (isOpen_ || !chosen_) return;
  queue_.post([handler = std::weak_ptr(onChoice_), choice = *std::exchange(chosen_, std::nullopt)] {
    if (const auto onChoice = handler.lock()) (*onChoice)(choice);
  });
}

}  // namespace tilwin::macos
