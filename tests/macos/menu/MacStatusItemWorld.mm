#import <AppKit/AppKit.h>

#include "platform/macos/menu/MacStatusItem.h"
#include "platform/macos/support/Text.h"
#include "platform/macos/system/MacMainQueue.h"
#include "tests/contract/StatusItemContract.h"
#include "tests/macos/desktop/EventLoop.h"
#include "tests/macos/desktop/MacDesktop.h"
#include "tests/macos/gnustep/StatusBarUser.h"
#include "tests/macos/menu/OnScreen.h"

namespace tilwin::macos {
namespace {

using contract::ShownEntry;

NSStatusItem* latestItem() { return [[NSStatusBar systemStatusBar] latestItem]; }

ShownEntry drawnEntry(NSMenuItem* item);

std::vector<ShownEntry> drawnEntries(NSMenu* menu) {
  std::vector<ShownEntry> entries;
  for (NSMenuItem* item in [menu itemArray]) entries.push_back(drawnEntry(item));
  return entries;
}

ShownEntry drawnEntry(NSMenuItem* item) {
  if ([item isSeparatorItem]) return {.kind = MenuItem::Kind::separator};
  ShownEntry entry{.title = utf8([item title]),
                   .isChecked = [item state] == NSControlStateValueOn,
                   .isEnabled = [item isEnabled] != NO};
  if ([[item keyEquivalent] length] > 0) entry.title += " (key equivalent)";
  if ([item hasSubmenu]) {
    entry.kind = MenuItem::Kind::submenu;
    entry.items = drawnEntries([item submenu]);
  }
  return entry;
}

class MacStatusItemWorld : public contract::StatusItemWorld {
public:
  StatusItem& item() override { return item_; }
  bool isIconShown() override { return isOnScreen([latestItem() window]); }
  void openMenu(contract::MouseButton button) override {
    click(queue_, [latestItem() button],
          button == contract::MouseButton::left ? Button::left : Button::right);
    EXPECT_TRUE(settle([&] { return isMenuOpen(); }));
  }
  bool isMenuOpen() override { return isOnScreen(menuWindow()); }
  std::vector<ShownEntry> shown() override {
    return isMenuOpen() ? drawnEntries([latestItem() menu]) : std::vector<ShownEntry>();
  }
  void choose(const std::vector<std::string>& path) override {
    NSMenu* menu = [latestItem() menu];
    NSInteger index = -1;
    for (const auto& title : path) {
      if (index >= 0) menu = [[menu itemAtIndex:index] submenu];
      index = [menu indexOfItemWithTitle:text(title)];
      ASSERT_GE(index, 0) << title;
    }
    [latestItem() chooseItemAtIndex:index ofMenu:menu];
  }
  /// A click on the icon closes its menu again.
  void dismiss() override { click(queue_, [latestItem() button]); }
  void rest() override {
    macDesktop().desktop().settle();
    EXPECT_TRUE(finishTasks(queue_));
  }
  bool settle(const std::function<bool()>& condition) override {
    return runEventLoopUntil(condition, desktop::answerTimeout);
  }

private:
  static NSWindow* menuWindow() { return [[[latestItem() menu] menuRepresentation] window]; }

  MacMainQueue queue_;
  MacStatusItem item_{queue_};
};

std::unique_ptr<contract::StatusItemWorld> makeMacStatusItem() {
  return std::make_unique<MacStatusItemWorld>();
}

}  // namespace
}  // namespace tilwin::macos

namespace tilwin::contract {

INSTANTIATE_TEST_SUITE_P(Mac, StatusItemContract, testing::Values(&macos::makeMacStatusItem));

}  // namespace tilwin::contract
