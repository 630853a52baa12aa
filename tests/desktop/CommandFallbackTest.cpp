#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/desktop/CommandCalls.h"

namespace tilwin::desktop {

namespace {

/// Nothing runs that could take commands.
class CommandsAlone : public Commands {
protected:
  void SetUp() override { endTilwin(); }
  void TearDown() override { restartTilwin(); }
};

/// No runtime folder, so that there is no socket to be found.
class CommandsOverTheBus : public Commands {
protected:
  static Environment withoutRuntimeFolder() {
    auto environment = session().environment();
    environment.unset("XDG_RUNTIME_DIR");
    return environment;
  }
  static Call overBus(const std::vector<std::string>& words) { return call(words, withoutRuntimeFolder()); }
};

}  // namespace

TEST_F(CommandsOverTheBus, ReachTheInstanceWhereThereIsNoRuntimeFolder) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  EXPECT_EQ(overBus({"snap", "left-half"}).status, done);
  EXPECT_TRUE(stands(window.id(), leftHalf));
  EXPECT_EQ(overBus({"snap", "restore"}).status, done) << "it knows where the window was";
  EXPECT_TRUE(stands(window.id(), startFrame));
}

TEST_F(CommandsOverTheBus, ShowTheSnapsOfShortcuts) { watchAShortcut(withoutRuntimeFolder()); }

TEST_F(CommandsOverTheBus, DoTheWorkThemselvesOnceItHasGone) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  endTilwin();
  EXPECT_EQ(overBus({"snap", "left-half"}).status, done);
  EXPECT_TRUE(stands(window.id(), leftHalf));
  EXPECT_EQ(overBus({"quit"}).status, (ExitStatus{.code = 3, .signal = std::nullopt}));
  restartTilwin();
}

TEST_F(CommandsAlone, MoveWindowsThemselves) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  EXPECT_TRUE(isDone({"snap", "right-half"}));
  EXPECT_TRUE(stands(window.id(), rightHalf));
  EXPECT_TRUE(isDone({"place", "no such program left"}) == false);
}

TEST_F(CommandsAlone, NeedNoRunningProgramToList) {
  EXPECT_EQ(call({"get", "gap"}).output, "0\n");
  EXPECT_EQ(call({"actions"}).status, done);
}

TEST_F(CommandsAlone, SayWhichOfThemNeedOne) {
  const auto quit = call({"quit"});
  EXPECT_EQ(quit.status, (ExitStatus{.code = 3, .signal = std::nullopt}));
  EXPECT_EQ(quit.problem, "tilwin: Tilwin is not running. Start it with \"tilwin\".\n");
}

TEST_F(CommandsAlone, NeedNoDisplayToExplainThemselves) {
  const auto help = call({"--help"}, session().home().environment());
  EXPECT_EQ(help.status, done);
  EXPECT_TRUE(help.output.starts_with("Usage: tilwin")) << help.output;
  EXPECT_EQ(call({"snap", "leftHalf"}, session().home().environment()).status,
            (ExitStatus{.code = 1, .signal = std::nullopt}));
}

}  // namespace tilwin::desktop
