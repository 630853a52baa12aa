#include "platform/macos/menu/MacStatusItem.h"

#include <utility>

#include "platform/macos/menu/TemplateDrawing.h"

namespace tilwin::macos {

MacStatusItem::~MacStatusItem() {
  if (!item_) return;
  [item_.get() setMenu:nil];
  [[NSStatusBar systemStatusBar] removeStatusItem:item_.get()];
}

void MacStatusItem::install(const TemplateImage& image, MenuMaker makeMenu, ChoiceHandler onChoice) {
  menu_.emplace(queue_, std::move(makeMenu), std::move(onChoice));
  // The bar gives up an item that nobody holds.
  item_ = retained([[NSStatusBar systemStatusBar] statusItemWithLength:NSSquareStatusItemLength]);
  [item_.get() setVisible:NO];
  [[item_.get() button] setImage:templateImage(image).get()];
  [[item_.get() button] setAccessibilityLabel:@"Tilwin"];
  [item_.get() setMenu:menu_->menu()];
}

void MacStatusItem::setVisible(bool visible) { [item_.get() setVisible:visible]; }

}  // namespace tilwin::macos
