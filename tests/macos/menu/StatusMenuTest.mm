#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include "platform/macos/menu/MacStatusItem.h"
#include "platform/macos/support/Text.h"
#include "platform/macos/system/MacMainQueue.h"
#include "tests/macos/desktop/EventLoop.h"
#include "tests/macos/desktop/Living.h"
#include "tests/macos/gnustep/StatusBarUser.h"

namespace tilwin::macos {
namespace {

class StatusMenuTest : public testing::Test {
protected:
  /// AppKit's calls to the delegate of a menu that is about to open.
  void open() {
    [delegate() menuNeedsUpdate:menu->menu()];
    [delegate() menuWillOpen:menu->menu()];
  }
  void close() { [delegate() menuDidClose:menu->menu()]; }
  void choose(NSInteger index) { [menu->menu() performActionForItemAtIndex:index]; }

  id delegate() { return [menu->menu() delegate]; }
  MenuModel model() {
    ++timesMade;
    return {{MenuItem::submenu("Halves", {MenuItem::command("Left Half", {"snap", "left"})}),
             MenuItem::separator(), MenuItem::command("Settings…", {"settings", ""}, true)}};
  }

  MacMainQueue queue;
  int timesMade = 0;
  std::vector<MenuChoice> choices;
  std::optional<StatusMenu> menu{std::in_place, queue, [this] { return model(); },
                                 [this](const MenuChoice& choice) { choices.push_back(choice); }};
  const std::vector<MenuChoice> settings{{"settings", ""}};
};

}  // namespace

TEST_F(StatusMenuTest, IsMadeOnceEachTimeItOpensHoweverOftenAppKitAsks) {
  open();
  EXPECT_EQ(timesMade, 1);
  EXPECT_EQ([menu->menu() numberOfItems], 3);
  [menu->menu() update];
  EXPECT_EQ(timesMade, 1);
  close();
  open();
  EXPECT_EQ(timesMade, 2);
  EXPECT_EQ([menu->menu() numberOfItems], 3);
}

TEST_F(StatusMenuTest, AChoiceThatComesBeforeTheMenuHasClosedIsReportedAfterwards) {
  open();
  choose(2);
  EXPECT_TRUE(finishTasks(queue));
  EXPECT_TRUE(choices.empty());
  close();
  EXPECT_TRUE(choices.empty());
  EXPECT_TRUE(runEventLoopUntil([this] { return choices == settings; })) << testing::PrintToString(choices);
}

TEST_F(StatusMenuTest, AChoiceThatComesWhenTheMenuHasClosedIsReportedAsATask) {
  open();
  close();
  choose(2);
  EXPECT_TRUE(choices.empty());
  EXPECT_TRUE(runEventLoopUntil([this] { return choices == settings; })) << testing::PrintToString(choices);
}

TEST_F(StatusMenuTest, AChoiceIsDroppedWithTheMenu) {
  open();
  close();
  choose(2);
  menu.reset();
  EXPECT_TRUE(finishTasks(queue));
  EXPECT_TRUE(choices.empty());
}

TEST_F(StatusMenuTest, AMenuThatIsStillHeldIsLeftEmpty) {
  open();
  const auto held = retained(menu->menu());
  EXPECT_EQ([held.get() numberOfItems], 3);
  menu.reset();
  EXPECT_EQ([held.get() numberOfItems], 0);
}

TEST_F(StatusMenuTest, NoEntryHasAKeyOrIsEnabledByAppKit) {
  open();
  for (NSMenu* each in @[ menu->menu(), [[menu->menu() itemAtIndex:0] submenu] ]) {
    EXPECT_FALSE([each autoenablesItems]);
    for (NSMenuItem* item in [each itemArray]) EXPECT_EQ(utf8([item keyEquivalent]), "");
  }
}

TEST_F(StatusMenuTest, MakingItAnewLeavesNothingOfTheLastOne) {
  const auto openAndClose = [this] {
    const AutoreleasePool pool;
    open();
    close();
  };
  const Living items({"NSMenuItem", "NSMenu", "TWAction"});
  openAndClose();
  const long made = items.count();
  EXPECT_GT(made, 3);
  for (int time = 0; time < 100; ++time) openAndClose();
  EXPECT_EQ(items.count(), made);
}

TEST(MacStatusItem, TheIconIsAPictureOf18PointsThatAppKitColoursAndHasAName) {
  MacMainQueue queue;
  MacStatusItem item(queue);
  item.install(
      {.size = {18, 18}}, [] { return MenuModel(); }, [](const MenuChoice&) {});
  NSButton* const button = [[[NSStatusBar systemStatusBar] latestItem] button];
  EXPECT_TRUE([[button image] isTemplate]);
  EXPECT_TRUE(NSEqualSizes([[button image] size], NSMakeSize(18, 18)));
  EXPECT_EQ(utf8([button accessibilityLabel]), "Tilwin");
}

TEST(MacStatusItem, TheIconVanishesWithTheAdapter) {
  MacMainQueue queue;
  {
    MacStatusItem item(queue);
    item.setVisible(true);
    item.install(
        {.size = {18, 18}}, [] { return MenuModel(); }, [](const MenuChoice&) {});
    EXPECT_FALSE([[[NSStatusBar systemStatusBar] latestItem] isVisible]);
  }
  EXPECT_EQ([[NSStatusBar systemStatusBar] latestItem], nil);
}

}  // namespace tilwin::macos
