#include "app/menu/StatusMenu.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/actions/ActionGroups.h"

namespace tilwin {
namespace {

const MenuItem* titled(const std::vector<MenuItem>& items, std::string_view title) {
  const auto found = std::ranges::find(items, title, &MenuItem::title);
  return found == items.end() ? nullptr : &*found;
}

std::vector<std::string> titlesOf(const std::vector<MenuItem>& items) {
  std::vector<std::string> titles;
  std::ranges::transform(items, std::back_inserter(titles), [](const MenuItem& item) {
    return item.kind == MenuItem::Kind::separator ? std::string("-") : item.title;
  });
  return titles;
}

/// The command of each entry under the titles that lead to it.
void collectCommands(const std::vector<MenuItem>& items, std::map<std::string, std::string>& commands,
                     const std::string& path = {}) {
  for (const MenuItem& item : items) {
    if (item.kind == MenuItem::Kind::command) commands[path + item.title] = item.choice.command;
    collectCommands(item.items, commands, path + item.title + "/");
  }
}

using Titles = std::vector<std::string>;

Layout layoutNamed(std::string name) { return {.id = Uuid::random(), .name = std::move(name)}; }

TEST(StatusMenu, ListsEverythingInItsOrder) {
  StatusMenu shown{
      .frontmost = RunningApplication{.bundleIdentifier = "org.example.Editor", .localizedName = "Editor"},
      .ownBundleIdentifier = "org.example.Tilwin",
      .isTrusted = false,
      .hasUpdates = true};
  EXPECT_EQ(titlesOf(shown.model().items),
            (Titles{"Allow Accessibility…", "-", "Halves", "Quarters", "Thirds", "Fourths (wide screens)",
                    "Sixths", "Size and display", "-", "Layouts", "Custom areas", "-",
                    "Never move windows of Editor", "Settings…", "Check for Updates…", "Quit Tilwin"}));
}

TEST(StatusMenu, BeginsWithASeparatorWhenAccessibilityIsAllowedAndHidesUpdatesWithoutAnUpdater) {
  EXPECT_EQ(titlesOf(StatusMenu{}.model().items),
            (Titles{"-", "Halves", "Quarters", "Thirds", "Fourths (wide screens)", "Sixths",
                    "Size and display", "-", "Layouts", "Custom areas", "-", "Settings…", "Quit Tilwin"}));
}

TEST(StatusMenu, TheGroupsHoldEveryActionOnce) {
  std::vector<SnapAction> listed;
  for (const auto& group : ActionGroup::all())
    listed.insert(listed.end(), group.actions.begin(), group.actions.end());
  std::ranges::sort(listed);
  EXPECT_TRUE(std::ranges::equal(listed, SnapActions::all()));
}

TEST(StatusMenu, EveryGroupListsItsActionsInItsOrder) {
  const std::map<std::string, std::vector<std::string>> expected{
      {"Halves", {"leftHalf", "rightHalf", "topHalf", "bottomHalf"}},
      {"Quarters", {"topLeft", "topRight", "bottomLeft", "bottomRight"}},
      {"Thirds", {"leftThird", "centerThird", "rightThird", "leftTwoThirds", "rightTwoThirds"}},
      {"Fourths (wide screens)",
       {"firstFourth", "secondFourth", "thirdFourth", "lastFourth", "leftThreeFourths", "rightThreeFourths"}},
      {"Sixths",
       {"topLeftSixth", "topCenterSixth", "topRightSixth", "bottomLeftSixth", "bottomCenterSixth",
        "bottomRightSixth"}},
      {"Size and display",
       {"maximize", "maximizeHeight", "maximizeWidth", "almostMaximize", "center", "centerLarge", "larger",
        "smaller", "restore", "nextDisplay", "previousDisplay"}}};
  const auto model = StatusMenu{}.model();
  for (const auto& [group, actions] : expected) {
    std::vector<std::string> listed;
    for (const MenuItem& item : titled(model.items, group)->items) listed.push_back(item.choice.argument);
    EXPECT_EQ(listed, actions) << group;
  }
}

TEST(StatusMenu, EveryEntryCarriesItsCommand) {
  StatusMenu shown{
      .frontmost = RunningApplication{.bundleIdentifier = "org.example.Editor", .localizedName = "Editor"},
      .isTrusted = false,
      .hasUpdates = true};
  shown.userLayouts = {layoutNamed("Desk")};
  shown.settings.customAreas = {CustomArea::starter("Column")};
  std::map<std::string, std::string> commands;
  collectCommands(shown.model().items, commands);
  std::erase_if(commands, [](const auto& entry) { return entry.second == "menuSnap:"; });
  EXPECT_EQ(commands, (std::map<std::string, std::string>{
                          {"Allow Accessibility…", "allowAccessibility"},
                          {"Layouts/Desk", "applyLayout:"},
                          {"Layouts/Save this arrangement…", "saveArrangement"},
                          {"Layouts/Describe a layout…", "describeLayout"},
                          {"Layouts/Delete layout/Desk", "deleteLayout:"},
                          {"Custom areas/Column", "menuArea:"},
                          {"Custom areas/Save this window as an area…", "saveWindowAsArea"},
                          {"Never move windows of Editor", "toggleIgnore:"},
                          {"Settings…", "showSettingsAction"},
                          {"Check for Updates…", "checkUpdates"},
                          {"Quit Tilwin", "quit"}}));
}

TEST(StatusMenu, TheSizesAreInTheOrderInWhichTheyAreUsed) {
  const auto model = StatusMenu{}.model();
  EXPECT_EQ(titlesOf(titled(model.items, "Size and display")->items),
            (Titles{"Maximize    ⌃⌥↩", "Full height    ⌃⌥⇧↑", "Full width    ⌃⌥⇧↓",
                    "Almost maximize    ⌃⌥=", "Center    ⌃⌥C", "Center, large",
                    "Make larger    ⌃⌥⇧=", "Make smaller    ⌃⌥⇧-", "Restore previous size    ⌃⌥⌫",
                    "Move to next display    ⌃⌥⌘→", "Move to previous display    ⌃⌥⌘←"}));
}

TEST(StatusMenu, AnActionShowsItsPresentShortcutAndCarriesItsRawValue) {
  StatusMenu shown;
  shown.settings.shortcuts["leftHalf"] = {96, 0};
  shown.settings.disabled = {"rightHalf"};
  const auto model = shown.model();
  const auto& halves = titled(model.items, "Halves")->items;
  ASSERT_EQ(titlesOf(halves),
            (Titles{"Left half    F5", "Right half", "Top half    ⌃⌥↑", "Bottom half    ⌃⌥↓"}));
  EXPECT_EQ(halves[0].choice, (MenuChoice{"menuSnap:", "leftHalf"}));
}

TEST(StatusMenu, WithoutUserLayoutsThereIsNothingToApplyOrDelete) {
  const auto model = StatusMenu{}.model();
  EXPECT_EQ(titlesOf(titled(model.items, "Layouts")->items),
            (Titles{"Save this arrangement…", "Describe a layout…"}));
}

TEST(StatusMenu, UserLayoutsCanBeAppliedAndDeleted) {
  StatusMenu shown;
  shown.userLayouts = {layoutNamed("Desk"), layoutNamed("Writing")};
  const auto model = shown.model();
  const auto& layouts = titled(model.items, "Layouts")->items;
  ASSERT_EQ(titlesOf(layouts), (Titles{"Desk", "Writing", "-", "Save this arrangement…", "Describe a layout…",
                                       "Delete layout"}));
  EXPECT_EQ(layouts[1].choice, (MenuChoice{"applyLayout:", shown.userLayouts[1].id.text()}));
  EXPECT_EQ(titlesOf(layouts.back().items), (Titles{"Desk", "Writing"}));
  EXPECT_EQ(layouts.back().items[0].choice, (MenuChoice{"deleteLayout:", shown.userLayouts[0].id.text()}));
}

TEST(StatusMenu, AreasAreListedInTheUsersOrderWithTheirShortcuts) {
  StatusMenu shown;
  shown.settings.customAreas = {CustomArea::starter("Zed"), CustomArea::starter("Column")};
  shown.settings.customAreas[1].shortcut = HotKeySpec{96, 0};
  const auto model = shown.model();
  const auto& areas = titled(model.items, "Custom areas")->items;
  ASSERT_EQ(titlesOf(areas), (Titles{"Zed", "Column    F5", "-", "Save this window as an area…"}));
  EXPECT_EQ(areas[0].choice, (MenuChoice{"menuArea:", shown.settings.customAreas[0].id.text()}));
}

TEST(StatusMenu, WithoutAreasOnlySavingOneIsOffered) {
  const auto model = StatusMenu{}.model();
  EXPECT_EQ(titlesOf(titled(model.items, "Custom areas")->items), (Titles{"Save this window as an area…"}));
}

TEST(StatusMenu, AnIgnoredApplicationHasACheckMark) {
  StatusMenu shown{
      .frontmost = RunningApplication{.bundleIdentifier = "org.example.Editor", .localizedName = "Editor"}};
  EXPECT_FALSE(titled(shown.model().items, "Never move windows of Editor")->isChecked);
  shown.settings.ignoredApps = {"org.example.Editor"};
  const auto model = shown.model();
  const auto* entry = titled(model.items, "Never move windows of Editor");
  EXPECT_TRUE(entry->isChecked);
  EXPECT_EQ(entry->choice, (MenuChoice{"toggleIgnore:", "org.example.Editor"}));
}

TEST(StatusMenu, WhenTheFrontApplicationIsThisProgramTheIgnoreEntryIsAbsent) {
  const StatusMenu shown{
      .frontmost = RunningApplication{.bundleIdentifier = "org.example.Tilwin", .localizedName = "Tilwin"},
      .ownBundleIdentifier = "org.example.Tilwin"};
  EXPECT_EQ(titled(shown.model().items, "Never move windows of Tilwin"), nullptr);
}

TEST(StatusMenu, AFrontApplicationWithAnIdentifierOfAbsurdLengthCanOnlyBeLetGo) {
  StatusMenu shown{.frontmost =
                       RunningApplication{.bundleIdentifier = std::string(256, 'x'), .localizedName = "X"}};
  EXPECT_EQ(titled(shown.model().items, "Never move windows of X"), nullptr);
  shown.settings.ignoredApps = {std::string(256, 'x')};
  EXPECT_TRUE(titled(shown.model().items, "Never move windows of X")->isChecked);
  shown.frontmost->bundleIdentifier->pop_back();
  EXPECT_FALSE(titled(shown.model().items, "Never move windows of X")->isChecked);
}

TEST(StatusMenu, AFrontApplicationWithoutAnIdentifierCannotBeIgnored) {
  const StatusMenu shown{.frontmost = RunningApplication{.localizedName = "Script"}};
  EXPECT_EQ(titled(shown.model().items, "Never move windows of Script"), nullptr);
}

TEST(StatusMenu, UpdatesCanBeChosenOnlyWhileACheckCanStart) {
  StatusMenu shown{.hasUpdates = true};
  EXPECT_FALSE(titled(shown.model().items, "Check for Updates…")->isEnabled);
  shown.canCheckForUpdates = true;
  EXPECT_TRUE(titled(shown.model().items, "Check for Updates…")->isEnabled);
}

}  // namespace
}  // namespace tilwin
