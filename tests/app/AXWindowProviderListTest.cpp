#include "tests/app/AXWindowProviderFixture.h"

namespace tilwin {
namespace {

using Titles = std::vector<std::string>;

TEST_F(AXWindowProviderTest, AllWindowsDescribesEachInFull) {
  const auto reader = launch("Reader");
  tree.setHash(desktop.open(editor, {.title = "text", .frame = {1, 2, 3, 4}}), 500);
  tree.setHash(desktop.open(reader, {.title = "page", .frame = {5, 6, 7, 8}}), 400);
  const std::vector<WindowInfo> expected{{.id = 500,
                                          .bundleID = "org.example.Editor",
                                          .appName = "Editor",
                                          .title = "text",
                                          .frame = {1, 2, 3, 4},
                                          .zOrder = 0},
                                         {.id = 400,
                                          .bundleID = "org.example.Reader",
                                          .appName = "Reader",
                                          .title = "page",
                                          .frame = {5, 6, 7, 8},
                                          .zOrder = 1}};
  EXPECT_EQ(provider.allWindows(), expected);
}

TEST_F(AXWindowProviderTest, TheFrontmostProgramComesFirstAndTheOthersByName) {
  for (const char* name : {"Mail", "atlas", "Zebra", "Éclair", "Notes"}) {
    desktop.open(launch(name), {.title = name});
  }
  desktop.open(editor, {.title = "Editor"});
  EXPECT_EQ(listedTitles(), (Titles{"Editor", "atlas", "Éclair", "Mail", "Notes", "Zebra"}));
  desktop.workspace.frontmost.reset();
  EXPECT_EQ(listedTitles(), (Titles{"atlas", "Éclair", "Editor", "Mail", "Notes", "Zebra"}));
}

TEST_F(AXWindowProviderTest, AProgramWithoutANameComesBeforeThoseWithOne) {
  desktop.open(launch("Atlas"), {.title = "named"});
  desktop.open(desktop.launch({.bundleIdentifier = "org.example.nameless"}), {.title = "nameless"});
  EXPECT_EQ(listedTitles(), (Titles{"nameless", "named"}));
}

TEST_F(AXWindowProviderTest, OfTwoCopiesOfAProgramTheOneInFrontComesFirst) {
  const auto second = launch("Editor");
  desktop.open(editor, {.title = "first"});
  desktop.open(second, {.title = "second"});
  EXPECT_EQ(listedTitles(), (Titles{"first", "second"}));
  desktop.activate(second);
  EXPECT_EQ(listedTitles(), (Titles{"second", "first"}));
}

TEST_F(AXWindowProviderTest, TheWindowsOfAProgramKeepItsOrder) {
  const Node first = desktop.open(editor, {.title = "first"});
  const Node second = desktop.open(editor, {.title = "second"});
  EXPECT_EQ(listedTitles(), (Titles{"second", "first"}));
  tree.give(applicationNode(editor), "AXWindows", std::vector{tree.reference(first), tree.reference(second)});
  EXPECT_EQ(listedTitles(), (Titles{"first", "second"}));
}

TEST_F(AXWindowProviderTest, ThisProgramsOwnWindowsAreNotListed) {
  desktop.open(editor, {.title = "own"});
  desktop.open(launch("Reader"), {.title = "page"});
  desktop.workspace.own = "org.example.Editor";
  EXPECT_EQ(listedTitles(), Titles{"page"});
}

TEST_F(AXWindowProviderTest, WithoutABundleOfItsOwnThisProgramListsNoneWithoutABundle) {
  desktop.open(editor, {.title = "text"});
  desktop.open(desktop.launch({.localizedName = "script"}), {.title = "script"});
  EXPECT_EQ(listedTitles(), (Titles{"text", "script"}));
  desktop.workspace.own.reset();
  EXPECT_EQ(listedTitles(), Titles{"text"});
}

TEST_F(AXWindowProviderTest, ProgramsThatAreNotRegularAreNotListed) {
  const auto agent = desktop.launch({.bundleIdentifier = "org.example.agent", .isRegular = false});
  desktop.open(agent, {.title = "agent"});
  desktop.open(editor, {.title = "text"});
  EXPECT_EQ(listedTitles(), Titles{"text"});
  desktop.activate(agent);
  EXPECT_EQ(listedTitles(), Titles{"text"});
}

TEST_F(AXWindowProviderTest, AWindowWithAnotherSubroleIsNotListed) {
  desktop.open(editor, {.title = "document"});
  for (const char* subrole : {"AXDialog", "AXFloatingWindow", "AXUnknown", "axstandardwindow", ""}) {
    desktop.open(editor, {.title = subrole, .subrole = subrole});
  }
  EXPECT_EQ(listedTitles(), Titles{"document"});
}

TEST_F(AXWindowProviderTest, AWindowWithoutASubroleIsListed) {
  desktop.open(editor, {.title = "plain", .subrole = std::nullopt});
  EXPECT_EQ(listedTitles(), Titles{"plain"});
}

TEST_F(AXWindowProviderTest, ASubroleThatIsNoTextCountsAsMissing) {
  tree.give(desktop.open(editor, {.title = "odd"}), "AXSubrole", true);
  EXPECT_EQ(listedTitles(), Titles{"odd"});
}

TEST_F(AXWindowProviderTest, MinimizedWindowsAreListedAsSuch) {
  desktop.open(editor, {.title = "away", .isMinimized = true});
  const auto windows = provider.allWindows();
  ASSERT_EQ(windows.size(), 1);
  EXPECT_TRUE(windows[0].isMinimized);
}

TEST_F(AXWindowProviderTest, OnlyWindowsThatAreListedCountInTheStackingOrder) {
  const auto reader = launch("Reader");
  desktop.open(reader, {.title = "page"});
  desktop.open(editor, {.title = "back"});
  desktop.open(editor, {.title = "Save changes?", .subrole = "AXDialog"});
  tree.take(desktop.open(editor, {.title = "formless"}), "AXSize");
  desktop.open(editor, {.title = "front"});
  std::vector<std::pair<std::string, std::int64_t>> ranks;
  for (const auto& window : provider.allWindows()) ranks.emplace_back(window.title, window.zOrder);
  const decltype(ranks) expected{{"front", 0}, {"back", 1}, {"page", 2}};
  EXPECT_EQ(ranks, expected);
}

TEST_F(AXWindowProviderTest, AProgramWhoseWindowsCannotBeReadIsPassedBy) {
  const auto mute = launch("Atlas");
  desktop.open(mute, {.title = "unseen"});
  desktop.open(launch("Reader"), {.title = "page"});
  tree.take(applicationNode(mute), "AXWindows");
  EXPECT_EQ(listedTitles(), Titles{"page"});
  tree.give(applicationNode(mute), "AXWindows", "none");
  EXPECT_EQ(listedTitles(), Titles{"page"});
}

TEST_F(AXWindowProviderTest, AProgramThatHasQuitWithoutBeingTakenOffTheListIsPassedBy) {
  desktop.workspace.running.push_back({.processID = 999, .bundleIdentifier = "org.example.Gone"});
  desktop.open(editor, {.title = "text"});
  EXPECT_EQ(listedTitles(), Titles{"text"});
}

TEST_F(AXWindowProviderTest, AWindowThatIsGoneButStillOnItsProgramsListIsPassedBy) {
  desktop.open(editor, {.title = "text"});
  tree.remove(desktop.open(editor, {.title = "gone"}));
  EXPECT_EQ(listedTitles(), Titles{"text"});
}

TEST_F(AXWindowProviderTest, WithoutPermissionNoWindowIsListed) {
  const auto id = openFocused();
  tree.isTrusted = false;
  EXPECT_TRUE(provider.allWindows().empty());
  tree.isTrusted = true;
  EXPECT_FALSE(provider.frame(id)) << "the list was not emptied";
}

}  // namespace
}  // namespace tilwin
