#include "app/commands/CommandLists.h"

#include <string>
#include <vector>

#include "tests/app/commands/RunningCommands.h"

namespace tilwin {
namespace {

struct CommandListsTest : RunningCommands {
  CommandListsTest() : RunningCommands("1440x900+0+0,1920x1080+1440-180") { start(); }
};

TEST_F(CommandListsTest, WindowsAreListedWithTheFocusedOneMarked) {
  desktop.windows.moveByHand(editor, {1500, -100, 720, 900});
  EXPECT_EQ(outputOf({"windows"}),
            "*  800x600+100+100   org.example.Terminal  shell\n"
            "   720x900+1500-100  org.example.Editor    Notes\n");
}

TEST_F(CommandListsTest, WindowsAreListedForPrograms) {
  desktop.windows.close(editor);
  EXPECT_EQ(
      outputOf({"windows", "--json"}),
      R"([{"window":2,"application":"org.example.Terminal","name":"Terminal","title":"shell",)"
      R"("frame":{"x":100,"y":100,"width":800,"height":600},"display":0,"isFocused":true,"isMinimized":false}])"
      "\n");
}

TEST_F(CommandListsTest, ATitleCannotCommandTheTerminal) {
  desktop.windows.close(editor);
  desktop.windows.find(terminal)->title = "a\x1b]0;evil\a\nb";
  EXPECT_EQ(outputOf({"windows"}), "*  800x600+100+100  org.example.Terminal  a ]0;evil b\n");
}

TEST_F(CommandListsTest, DisplaysAreListedFromLeftToRight) {
  desktop.windows.reserve(1, {.top = 25});
  EXPECT_EQ(outputOf({"displays"}),
            "0  1440x900+0+0        free 1440x875+0+25       primary\n"
            "1  1920x1080+1440-180  free 1920x1080+1440-180\n");
  const std::string json = outputOf({"displays", "--json"});
  EXPECT_TRUE(
      json.starts_with(R"([{"index":0,"frame":{"x":0,"y":0,"width":1440,"height":900},)"
                       R"("visibleFrame":{"x":0,"y":25,"width":1440,"height":875},"isPrimary":true},)"))
      << json;
}

TEST_F(CommandListsTest, ActionsAreListedWithTheirShortcuts) {
  const std::string text = outputOf({"actions"});
  EXPECT_TRUE(text.starts_with("leftHalf           ctrl+alt+left         Left half\n")) << text.substr(0, 80);
  EXPECT_EQ(std::ranges::count(text, '\n'), 36);
  const std::string json = outputOf({"actions", "--json"});
  EXPECT_TRUE(json.starts_with(R"([{"action":"leftHalf","title":"Left half","shortcut":"ctrl+alt+left"},)"));
  EXPECT_NE(json.find(R"({"action":"centerLarge","title":)"), std::string::npos);
}

TEST_F(CommandListsTest, SettingsAreListed) {
  const std::string text = outputOf({"get"});
  EXPECT_TRUE(text.starts_with("gap 0\nouter 0\ncycleWidths on\n")) << text;
  EXPECT_NE(text.find("\nshortcut.leftHalf ctrl+alt+left\n"), std::string::npos);
  EXPECT_TRUE(outputOf({"get", "--json"}).starts_with(R"({"gap":0,"outer":0,"cycleWidths":true,)"));
}

TEST_F(CommandListsTest, LayoutsAreListedForPrograms) {
  ASSERT_EQ(call({"layout", "save", "Desk"}).status, exit_status::done);
  const std::string json = outputOf({"layout", "list", "--json"});
  EXPECT_TRUE(json.starts_with(R"([{"name":"Desk","windows":2,"updatedAt":")")) << json;
}

}  // namespace
}  // namespace tilwin
