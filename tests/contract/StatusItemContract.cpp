#include "tests/contract/StatusItemContract.h"

namespace tilwin::contract {
namespace {

using Choices = std::vector<MenuChoice>;

/// Two columns, the left one filled.
const TemplateImage twoColumns{.size = {18, 18},
                               .shapes = {{.frame = {2, 3, 14, 12}, .cornerRadius = 2, .lineWidth = 1.5},
                                          {.frame = {4, 5, 5, 8}, .cornerRadius = 1}}};

MenuItem numbered(const std::string& title, const std::string& argument, bool isChecked = false) {
  return MenuItem::command(title, {"number", argument}, isChecked);
}

/// One of everything that a menu can have.
MenuModel wholeMenu() {
  return {
      {MenuItem::submenu("Halves", {numbered("Left Half    ⌃⌥←", "left"), numbered("Right Half", "right")}),
       MenuItem::submenu("Layouts", {numbered("Desk", "desk"), MenuItem::separator(),
                                     MenuItem::submenu("Delete layout", {numbered("Desk", "delete")})}),
       MenuItem::separator(), numbered("Never move windows of Mail", "mail", true),
       numbered("Settings…", "settings"), MenuItem::separator(), numbered("Quit Tilwin", "quit")}};
}

}  // namespace

std::vector<ShownEntry> entriesOf(const std::vector<MenuItem>& items) {
  std::vector<ShownEntry> entries;
  entries.reserve(items.size());
  for (const auto& item : items) {
    entries.push_back({item.kind, item.title, item.isChecked, item.isEnabled, entriesOf(item.items)});
  }
  return entries;
}

void StatusItemContract::show() {
  world->item().install(
      twoColumns,
      [this] {
        ++timesMade;
        return menu;
      },
      [this](const MenuChoice& choice) {
        choices.push_back(choice);
        wasOpenAtChoice = wasOpenAtChoice || world->isMenuOpen();
      });
  world->item().setVisible(true);
  ASSERT_TRUE(iconComes());
}

void StatusItemContract::choose(const std::vector<std::string>& path) {
  const auto before = choices.size();
  world->openMenu(MouseButton::left);
  world->choose(path);
  EXPECT_TRUE(world->settle([&] { return choices.size() > before; }));
}

TEST_P(StatusItemContract, TheIconIsHiddenUntilItIsMadeVisible) {
  world->item().install(
      twoColumns, [] { return MenuModel(); }, [](const MenuChoice&) {});
  world->rest();
  EXPECT_FALSE(world->isIconShown());
  world->item().setVisible(true);
  EXPECT_TRUE(iconComes());
}

TEST_P(StatusItemContract, TheIconCanBeHiddenAndShownAgain) {
  menu = wholeMenu();
  show();
  world->item().setVisible(false);
  EXPECT_TRUE(iconGoes());
  world->item().setVisible(true);
  EXPECT_TRUE(iconComes());
  choose({"Quit Tilwin"});
  EXPECT_EQ(choices, (Choices{{"number", "quit"}}));
}

TEST_P(StatusItemContract, TheMenuShowsAllEntriesInTheirOrder) {
  menu = wholeMenu();
  show();
  world->openMenu(MouseButton::left);
  EXPECT_EQ(world->shown(), entriesOf(menu.items));
}

TEST_P(StatusItemContract, BothMouseButtonsOpenTheMenu) {
  menu = wholeMenu();
  show();
  for (const auto button : {MouseButton::left, MouseButton::right}) {
    world->openMenu(button);
    EXPECT_EQ(world->shown(), entriesOf(menu.items));
    world->dismiss();
    EXPECT_TRUE(world->settle([&] { return !world->isMenuOpen(); }));
  }
}

TEST_P(StatusItemContract, TheMenuIsMadeAnewEachTimeItOpens) {
  menu = wholeMenu();
  show();
  world->openMenu(MouseButton::left);
  const int made = timesMade;
  EXPECT_GT(made, 0);
  world->dismiss();
  ASSERT_TRUE(world->settle([&] { return !world->isMenuOpen(); }));

  menu.items[3] = numbered("Never move windows of Notes", "notes");
  menu.items[1].items.insert(menu.items[1].items.begin(), numbered("Balcony", "balcony", true));
  menu.items.pop_back();
  menu.items.pop_back();
  world->openMenu(MouseButton::left);
  EXPECT_GT(timesMade, made);
  EXPECT_EQ(world->shown(), entriesOf(menu.items));
}

TEST_P(StatusItemContract, TitlesAreShownAsTheyStand) {
  for (const auto* title : {"Fish & Chips", "&File", "&&", "snake_case", "__init__", "50 %n", "<b>bold</b>",
                            "Left Half    ⌃⌥←", "Müller 日本語 😀"}) {
    menu.items.push_back(numbered(title, title));
    menu.items.push_back(MenuItem::submenu(title, {numbered(title, title)}));
  }
  show();
  world->openMenu(MouseButton::left);
  EXPECT_EQ(world->shown(), entriesOf(menu.items));
}

TEST_P(StatusItemContract, AChoiceIsReportedOnceAfterTheMenuHasClosed) {
  menu = wholeMenu();
  show();
  choose({"Settings…"});
  EXPECT_EQ(choices, (Choices{{"number", "settings"}}));
  EXPECT_FALSE(wasOpenAtChoice);
  choose({"Quit Tilwin"});
  EXPECT_EQ(choices, (Choices{{"number", "settings"}, {"number", "quit"}}));
}

TEST_P(StatusItemContract, EntriesOfSubmenusCanBeChosen) {
  menu = wholeMenu();
  show();
  choose({"Halves", "Right Half"});
  choose({"Layouts", "Delete layout", "Desk"});
  choose({"Layouts", "Desk"});
  EXPECT_EQ(choices, (Choices{{"number", "right"}, {"number", "delete"}, {"number", "desk"}}));
}

TEST_P(StatusItemContract, ACheckMarkChangesWithTheModelAloneNotWithAClick) {
  menu = wholeMenu();
  show();
  choose({"Never move windows of Mail"});
  EXPECT_EQ(choices, (Choices{{"number", "mail"}}));
  world->openMenu(MouseButton::left);
  EXPECT_TRUE(world->shown()[3].isChecked);
  world->dismiss();
  ASSERT_TRUE(world->settle([&] { return !world->isMenuOpen(); }));
  menu.items[3].isChecked = false;
  world->openMenu(MouseButton::left);
  EXPECT_FALSE(world->shown()[3].isChecked);
}

TEST_P(StatusItemContract, AnEntryThatCannotBeChosenNowIsDrawnSo) {
  menu = {{numbered("Check", "check"), numbered("Quit", "quit")}};
  menu.items[0].isEnabled = false;
  show();
  world->openMenu(MouseButton::left);
  EXPECT_EQ(world->shown(), entriesOf(menu.items));
  world->dismiss();
  ASSERT_TRUE(world->settle([&] { return !world->isMenuOpen(); }));
  menu.items[0].isEnabled = true;
  choose({"Check"});
  EXPECT_EQ(choices, (Choices{{"number", "check"}}));
}

TEST_P(StatusItemContract, AMenuThatIsDismissedReportsNothing) {
  menu = wholeMenu();
  show();
  world->openMenu(MouseButton::left);
  world->dismiss();
  EXPECT_TRUE(world->settle([&] { return !world->isMenuOpen(); }));
  choose({"Settings…"});
  EXPECT_EQ(choices, (Choices{{"number", "settings"}}));
}

TEST_P(StatusItemContract, AChoiceMayHideTheIcon) {
  menu = wholeMenu();
  world->item().install(
      twoColumns, [this] { return menu; },
      [this](const MenuChoice& choice) {
        choices.push_back(choice);
        world->item().setVisible(false);
      });
  world->item().setVisible(true);
  ASSERT_TRUE(iconComes());
  choose({"Quit Tilwin"});
  EXPECT_TRUE(iconGoes());
}

}  // namespace tilwin::contract
