#include "app/commands/CommandRunner.h"

#include <string>
#include <vector>

#include "tests/app/commands/RunningCommands.h"

namespace tilwin {
namespace {

struct CommandRunnerTest : RunningCommands {
  CommandRunnerTest() { start(); }

  static TilwinSettings withAreas() {
    TilwinSettings settings;
    for (const char* name : {"Reading column", "Corner"})
      settings.customAreas.push_back(CustomArea::starter(name));
    settings.customAreas[1].rect = {0.5, 0.5, 0.5, 0.5};
    return settings;
  }
};

TEST_F(CommandRunnerTest, SnapMovesTheFocusedWindow) {
  EXPECT_EQ(call({"snap", "leftHalf"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{0, 0, 720, 900}));
  EXPECT_EQ(frameOf(editor), (Rect{720, 0, 720, 900}));
}

TEST_F(CommandRunnerTest, SnapTakesNamesWithHyphens) {
  EXPECT_EQ(call({"snap", "bottom-right"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{720, 450, 720, 450}));
}

TEST_F(CommandRunnerTest, SnapAskedForAgainTakesTheNextWidth) {
  for (const double width : {720.0, 960.0, 480.0, 720.0}) {
    EXPECT_EQ(call({"snap", "left-half"}), CommandReply::done());
    EXPECT_EQ(frameOf(terminal), (Rect{0, 0, width, 900}));
  }
}

TEST_F(CommandRunnerTest, RestoreBringsBackWhatAShortcutMoved) {
  desktop.keyboard.press({123, HotKeySpec::control | HotKeySpec::option});
  desktop.time.runDue();
  ASSERT_EQ(frameOf(terminal), (Rect{0, 0, 720, 900}));
  EXPECT_EQ(call({"snap", "restore"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{100, 100, 800, 600}));
}

TEST_F(CommandRunnerTest, SnapSaysWhyNot) {
  EXPECT_EQ(call({"snap", "restore"}), couldNot("Tilwin has not moved this window."));
  desktop.user.setTrusted(false);
  desktop.windows.close(terminal);
  desktop.windows.close(editor);
  EXPECT_EQ(call({"snap", "leftHalf"}), couldNot("Tilwin is not allowed to move windows."));
  desktop.user.setTrusted(true);
  EXPECT_EQ(call({"snap", "leftHalf"}), couldNot("No window has the focus."));
}

TEST_F(CommandRunnerTest, SnapLeavesIgnoredProgramsAlone) {
  TilwinSettings settings;
  settings.ignoredApps = {"org.example.Terminal"};
  change(settings);
  EXPECT_EQ(call({"snap", "leftHalf"}), couldNot("Tilwin leaves the windows of Terminal alone."));
  EXPECT_EQ(frameOf(terminal), (Rect{100, 100, 800, 600}));
}

TEST_F(CommandRunnerTest, AnUnknownActionIsWrongUse) {
  EXPECT_EQ(call({"snap", "lefthlaf"}), wrongUse("\"lefthlaf\" is no action. Did you mean \"leftHalf\"?"));
  EXPECT_EQ(call({"snap", "xyzzy"}), wrongUse("\"xyzzy\" is no action. \"tilwin actions\" lists them."));
}

TEST_F(CommandRunnerTest, AreaMovesTheFocusedWindowByTheNameOfAnArea) {
  change(withAreas());
  EXPECT_EQ(call({"area", "Corner"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{720, 450, 720, 450}));
  EXPECT_EQ(call({"area", "reading COLUMN"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{288, 0, 864, 900}));
}

TEST_F(CommandRunnerTest, AnUnknownAreaIsNamedWithItsNeighbour) {
  change(withAreas());
  EXPECT_EQ(call({"area", "Croner"}), couldNot("There is no area \"Croner\". Did you mean \"Corner\"?"));
}

TEST_F(CommandRunnerTest, ASavedLayoutIsListedAppliedAndDeleted) {
  EXPECT_EQ(outputOf({"layout", "list"}), "");
  EXPECT_EQ(call({"layout", "save", "Desk"}), CommandReply::done());
  EXPECT_EQ(outputOf({"layout", "list"}), "Desk\n");
  desktop.windows.moveByHand(editor, {5, 5, 300, 300});
  EXPECT_EQ(call({"layout", "apply", "desk"}), CommandReply::done());
  EXPECT_EQ(frameOf(editor), (Rect{720, 0, 720, 900}));
  EXPECT_EQ(call({"layout", "delete", "Desk"}), CommandReply::done());
  EXPECT_EQ(outputOf({"layout", "list"}), "");
  EXPECT_TRUE(savedLayouts().userLayouts().empty());
}

TEST_F(CommandRunnerTest, ALayoutSavedUnderItsNameAgainIsReplaced) {
  EXPECT_EQ(call({"layout", "save", "Desk"}), CommandReply::done());
  const auto id = savedLayouts().userLayouts().at(0).id;
  desktop.windows.close(editor);
  EXPECT_EQ(call({"layout", "save", "Desk"}), CommandReply::done());
  const auto layouts = savedLayouts().userLayouts();
  ASSERT_EQ(layouts.size(), 1U);
  EXPECT_EQ(layouts[0].id, id);
  EXPECT_EQ(layouts[0].slots.size(), 1U);
}

TEST_F(CommandRunnerTest, ALayoutWhoseWindowsAreNotOpenIsPlacedInPart) {
  ASSERT_EQ(call({"layout", "save", "Desk"}), CommandReply::done());
  desktop.windows.close(editor);
  desktop.windows.moveByHand(terminal, {5, 5, 300, 300});
  EXPECT_EQ(call({"layout", "apply", "Desk"}),
            couldNot("1 window not open:\nThese apps in “Desk” have no open window: Editor"));
  EXPECT_EQ(frameOf(terminal), (Rect{100, 100, 800, 600}));
}

TEST_F(CommandRunnerTest, OnlyAnExactNameDeletesALayout) {
  ASSERT_EQ(call({"layout", "save", "Desk"}), CommandReply::done());
  EXPECT_EQ(call({"layout", "delete", "desk"}),
            couldNot("There is no layout \"desk\". Did you mean \"Desk\"?"));
  EXPECT_EQ(outputOf({"layout", "list"}), "Desk\n");
}

TEST_F(CommandRunnerTest, ALayoutNeedsAName) {
  EXPECT_EQ(call({"layout", "save", ""}), wrongUse("A layout needs a name."));
}

TEST_F(CommandRunnerTest, PlaceFollowsASentence) {
  EXPECT_EQ(call({"place", "terminal", "left", "third,", "editor", "right", "two", "thirds"}),
            CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{0, 0, 480, 900}));
  EXPECT_EQ(frameOf(editor), (Rect{480, 0, 960, 900}));
}

TEST_F(CommandRunnerTest, PlaceSaysWhatItCouldNotRead) {
  EXPECT_EQ(call({"place", "terminal left, browser right"}),
            couldNot("Placed what it could:\nNo single open app matches “browser”"));
  EXPECT_EQ(frameOf(terminal), (Rect{0, 0, 720, 900}));
  EXPECT_EQ(call({"place", ""}), couldNot("Nothing to place:\nDescribe at least one app and where it goes."));
}

TEST_F(CommandRunnerTest, SettingsAreReadAndChanged) {
  EXPECT_EQ(outputOf({"get", "gap"}), "0\n");
  EXPECT_EQ(call({"set", "gap", "12"}), CommandReply::done());
  EXPECT_EQ(outputOf({"get", "gap", "--json"}), "12\n");
  EXPECT_EQ(settings().gap, 12);
  EXPECT_EQ(SettingsStore(desktop.userDefaults()).settings.get().gap, 12);
  ASSERT_EQ(call({"snap", "leftHalf"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{0, 0, 714, 900}));
}

TEST_F(CommandRunnerTest, AShortcutThatIsSetWorksAtOnce) {
  EXPECT_EQ(call({"set", "shortcut.leftHalf", "f5"}), CommandReply::done());
  desktop.keyboard.press({96, 0});
  desktop.time.runDue();
  EXPECT_EQ(frameOf(terminal), (Rect{0, 0, 720, 900}));
}

TEST_F(CommandRunnerTest, WhatASettingCannotBeIsRefused) {
  EXPECT_EQ(call({"set", "gap", "wide"}), couldNot("gap is a number of points from 0 to 64."));
  EXPECT_EQ(call({"set", "gpa", "1"}), wrongUse("There is no setting \"gpa\". Did you mean \"gap\"?"));
  EXPECT_EQ(call({"get", "gpa"}), wrongUse("There is no setting \"gpa\". Did you mean \"gap\"?"));
  EXPECT_EQ(desktop.disk.writeCount(), 0);
}

TEST_F(CommandRunnerTest, SettingsOpensTheSettingsWindow) {
  EXPECT_EQ(call({"settings"}), CommandReply::done());
  EXPECT_TRUE(desktop.settingsWindow.isOpen());
}

TEST_F(CommandRunnerTest, MisuseIsExplained) {
  EXPECT_EQ(call({"snpa", "leftHalf"}), wrongUse("\"snpa\" is not a command. Did you mean \"snap\"?"));
  EXPECT_EQ(call({"help", "snpa"}), wrongUse("\"snpa\" is not a command. Did you mean \"snap\"?"));
}

TEST(CommandsWithoutADesktop, AreHelpVersionAndMisuse) {
  using Words = std::vector<std::string>;
  const auto run = [](const Words& words) { return CommandRunner::runWithoutDesktop(words, "1.2"); };
  EXPECT_EQ(run({"version"}), CommandReply::done("1.2\n"));
  EXPECT_EQ(run({"--version"}), CommandReply::done("1.2\n"));
  EXPECT_EQ(run({"--help"})->output.substr(0, 13), "Usage: tilwin");
  EXPECT_EQ(run({"snap"}), wrongUse("\"snap\" needs ACTION: tilwin snap ACTION"));
  EXPECT_EQ(run({"snap", "leftHalf"}), std::nullopt);
}

TEST(CommandsWithoutADesktop, AreThoseThatNeedAnInstance) {
  EXPECT_EQ(
      CommandRunner::runWithoutDesktop(std::vector<std::string>{"quit"}, "1.2"),
      CommandReply::failed(exit_status::needsInstance, "Tilwin is not running. Start it with \"tilwin\"."));
}

}  // namespace
}  // namespace tilwin
