#include "platform/macos/menu/MenuDrawing.h"

#include <array>

#include "platform/macos/support/Action.h"
#include "platform/macos/support/Held.h"
#include "platform/macos/support/Text.h"

namespace tilwin::macos {
namespace {

using ChoiceHandler = std::function<void(const MenuChoice&)>;

void addItems(const std::vector<MenuItem>& items, NSMenu* menu, const ChoiceHandler& onChoice);

Held<NSMenuItem*> titledItem(const MenuItem& item, SEL actionSelector) {
  return owned([[NSMenuItem alloc] initWithTitle:text(item.title) action:actionSelector keyEquivalent:@""]);
}

Held<NSMenuItem*> commandItem(const MenuItem& item, const ChoiceHandler& onChoice) {
  const auto target = action([onChoice, choice = item.choice](id) { onChoice(choice); });
  auto drawn = titledItem(item, @selector(perform:));
  [drawn.get() setTarget:target.get()];
  [drawn.get() setRepresentedObject:target.get()];
  [drawn.get() setState:item.isChecked ? NSControlStateValueOn : NSControlStateValueOff];
  [drawn.get() setEnabled:item.isEnabled];
  return drawn;
}

Held<NSMenuItem*> submenuItem(const MenuItem& item, const ChoiceHandler& onChoice) {
  const auto submenu = owned([[NSMenu alloc] initWithTitle:text(item.title)]);
  addItems(item.items, submenu.get(), onChoice);
  auto drawn = titledItem(item, nullptr);
  [drawn.get() setSubmenu:submenu.get()];
  return drawn;
}

Held<NSMenuItem*> separatorItem(const MenuItem&, const ChoiceHandler&) {
  NSMenuItem* const drawn = static_cast<id>([NSMenuItem separatorItem]);
  return retained(drawn);
}

/// By MenuItem::Kind.
constexpr std::array drawItem{&commandItem, &submenuItem, &separatorItem};

void addItems(const std::vector<MenuItem>& items, NSMenu* menu, const ChoiceHandler& onChoice) {
  [menu setAutoenablesItems:NO];
  for (const auto& item : items) {
    [menu addItem:drawItem[static_cast<std::size_t>(item.kind)](item, onChoice).get()];
  }
}

}  // namespace

void drawMenu(const MenuModel& model, NSMenu* menu, const ChoiceHandler& onChoice) {
  while ([menu numberOfItems] > 0) [menu removeItemAtIndex:[menu numberOfItems] - 1];
  addItems(model.items, menu, onChoice);
}

}  // namespace tilwin::macos
