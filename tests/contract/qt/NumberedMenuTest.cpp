#include "platform/qt/menu/NumberedMenu.h"

#include <gtest/gtest.h>

namespace tilwin::contract {
namespace {

using qt::NumberedMenu;
using Numbers = std::vector<int>;

MenuItem entryNamed(const std::string& name) { return MenuItem::command(name, {"run", name}); }

Numbers topNumbers(const NumberedMenu& menu) { return menu.entry(0)->children; }

/// The menu that a panel had first.
NumberedMenu firstMenu(std::vector<MenuItem> items) { return NumberedMenu({std::move(items)}, {}); }

TEST(NumberedMenu, AnEmptyMenuHasARootAlone) {
  EXPECT_EQ(topNumbers(NumberedMenu()), Numbers{});
  EXPECT_EQ(NumberedMenu().entry(1), nullptr);
}

TEST(NumberedMenu, AnEqualMenuKeepsItsNumbers) {
  const std::vector items{entryNamed("a"), MenuItem::submenu("s", {entryNamed("b")}), MenuItem::separator(),
                          entryNamed("c")};
  const auto menu = firstMenu(items);
  const NumberedMenu next({items}, menu);
  EXPECT_TRUE(next.hasShapeOf(menu));
  EXPECT_EQ(next.entries(), menu.entries());
}

TEST(NumberedMenu, AnEntryKeepsItsNumberWhereverItGoes) {
  const auto menu = firstMenu({entryNamed("a"), entryNamed("b"), entryNamed("c")});
  const auto before = topNumbers(menu);
  const NumberedMenu next({{entryNamed("c"), entryNamed("a")}}, menu);
  EXPECT_EQ(topNumbers(next), (Numbers{before[2], before[0]}));
  EXPECT_FALSE(next.hasShapeOf(menu));
}

TEST(NumberedMenu, WhatReplacesAnEntryOfTheSameCommandTakesItsNumber) {
  const auto menu = firstMenu({MenuItem::command("Never move Mail", {"ignore", "mail"}), entryNamed("a")});
  const NumberedMenu next(
      {{MenuItem::command("Never move Notes", {"ignore", "notes"}, true), entryNamed("a")}}, menu);
  EXPECT_TRUE(next.hasShapeOf(menu));
  EXPECT_EQ(next.entry(topNumbers(next)[0])->item.choice.argument, "notes");
}

TEST(NumberedMenu, ANewEntryLeavesTheOthersTheirNumbers) {
  const auto menu = firstMenu({entryNamed("a"), entryNamed("b")});
  const auto before = topNumbers(menu);
  const NumberedMenu next({{entryNamed("new"), entryNamed("a"), entryNamed("b")}}, menu);
  EXPECT_EQ(topNumbers(next)[1], before[0]);
  EXPECT_EQ(topNumbers(next)[2], before[1]);
  EXPECT_EQ(menu.entry(topNumbers(next)[0]), nullptr);
}

TEST(NumberedMenu, ANumberThatIsFreeAgainIsNotGivenToAnotherEntry) {
  const auto menu = firstMenu({entryNamed("a"), MenuItem::submenu("s", {entryNamed("b")})});
  const NumberedMenu shorter({{entryNamed("a")}}, menu);
  const NumberedMenu longer({{entryNamed("a"), MenuItem::submenu("t", {entryNamed("d")})}}, shorter);
  for (const auto& [number, entry] : longer.entries()) {
    if (entry.item.title == "t" || entry.item.title == "d") {
      EXPECT_EQ(menu.entry(number), nullptr);
    }
  }
}

TEST(NumberedMenu, SeparatorsThatSeparateNothingAreLeftOut) {
  const auto menu = firstMenu({MenuItem::separator(), entryNamed("a"), MenuItem::separator(),
                               MenuItem::separator(), entryNamed("b"), MenuItem::separator()});
  std::vector<MenuItem::Kind> kinds;
  for (const int number : topNumbers(menu)) kinds.push_back(menu.entry(number)->item.kind);
  EXPECT_EQ(kinds,
            (std::vector{MenuItem::Kind::command, MenuItem::Kind::separator, MenuItem::Kind::command}));
}

}  // namespace
}  // namespace tilwin::contract
