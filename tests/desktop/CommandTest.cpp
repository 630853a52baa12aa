#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/desktop/CommandCalls.h"

namespace tilwin::desktop {

namespace {

/// Somebody has a script for the start of the day.
class WorkPlace : public Commands {
protected:
  testing::AssertionResult isRun(const std::string& script) {
    auto environment = session().environment();
    environment.set("PATH", arguments().tilwin.parent_path().string() + ":" + environment.get("PATH"));
    auto process = ChildProcess::start({.argv = {script},
                                        .environment = environment,
                                        .outputFile = session().home().log("script"),
                                        .errorFile = session().home().log("script-errors")});
    const auto status = process.waitFor(startTimeout);
    const std::string said = process.output() + process.errorOutput();
    terminals_.push_back(std::move(process));
    return status == done ? testing::AssertionSuccess() : testing::AssertionFailure() << said;
  }

private:
  std::vector<ChildProcess> terminals_;  ///< stay open as long as the script they are children of is kept
};

}  // namespace

TEST_F(Commands, SnapMovesTheFocusedWindowAndRestoreBringsItBack) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  EXPECT_TRUE(isDone({"snap", "left-half"}));
  EXPECT_TRUE(stands(window.id(), leftHalf));
  EXPECT_TRUE(isDone({"snap", "restore"}));
  EXPECT_TRUE(stands(window.id(), startFrame));
}

TEST_F(Commands, AndShortcutsAreOneProgram) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press("Control+Alt+Right");
  ASSERT_TRUE(stands(window.id(), rightHalf));
  EXPECT_TRUE(isDone({"snap", "rightHalf"}));
  EXPECT_TRUE(stands(window.id(), {640, 0, 1280, 1080})) << "the next width";
  EXPECT_TRUE(isDone({"snap", "restore"}));
  EXPECT_TRUE(stands(window.id(), startFrame));
}

TEST_F(Commands, TellWhatIsThere) {
  const TestWindow window = session().window({.title = "Notes of today"});
  focusAtStart(window.id());
  const auto windows = call({"windows", "--json"});
  EXPECT_EQ(windows.status, done);
  EXPECT_NE(windows.output.find(R"("title":"Notes of today")"), std::string::npos) << windows.output;
  EXPECT_NE(windows.output.find(R"("isFocused":true)"), std::string::npos) << windows.output;
  EXPECT_EQ(call({"displays"}).output.substr(0, 16), "0  1920x1080+0+0");
}

TEST_F(Commands, ChangeSettingsAtOnce) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  EXPECT_TRUE(isDone({"set", "outer", "20"}));
  EXPECT_TRUE(isDone({"snap", "leftHalf"}));
  EXPECT_TRUE(stands(window.id(), {20, 20, 940, 1040}));
  EXPECT_TRUE(isDone({"set", "outer", "0"}));
  EXPECT_EQ(call({"get", "outer"}).output, "0\n");
}

TEST_F(Commands, WatchingShowsTheSnapsOfShortcuts) { watchAShortcut(session().environment()); }

TEST_F(Commands, SayWhatIsWrong) {
  const auto misuse = call({"snpa", "leftHalf"});
  EXPECT_EQ(misuse.status, (ExitStatus{.code = 2, .signal = std::nullopt}));
  EXPECT_EQ(misuse.problem, "tilwin: \"snpa\" is not a command. Did you mean \"snap\"?\n");
  EXPECT_EQ(call({"area", "nowhere"}).status, (ExitStatus{.code = 1, .signal = std::nullopt}));
}

TEST_F(Commands, VersionIsThatOfTheProgramThatIsCalled) {
  const auto version = call({"version"});
  EXPECT_EQ(version.status, done);
  EXPECT_EQ(version.output, call({"--version"}).output);
  EXPECT_EQ(std::ranges::count(version.output, '\n'), 1) << version.output;
}

TEST_F(Commands, QuitEndsTheProgram) {
  EXPECT_TRUE(isDone({"quit"}));
  EXPECT_EQ(tilwin().process().waitFor(answerTimeout), done);
  restartTilwin();
}

TEST_F(Commands, WhileTheProgramStartsAndEndsAreCarriedOutByEither) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  for (int round = 0; round < 3; ++round) {
    EXPECT_TRUE(isDone({"quit"}));
    EXPECT_TRUE(isDone({"snap", "left-half"}));
    tilwin().process().waitFor(answerTimeout);
    restartTilwin();
    EXPECT_TRUE(isDone({"snap", "right-half"}));
    EXPECT_TRUE(stands(window.id(), rightHalf));
    EXPECT_TRUE(isDone({"snap", "restore"}));
  }
}

TEST_F(WorkPlace, IsRebuiltByAScript) {
  const std::string script = TILWIN_DOCS "/examples/workplace.sh";
  ASSERT_TRUE(isRun(script));
  const std::string built = call({"windows", "--json"}).output;
  EXPECT_NE(built.find(R"("title":"Editor","frame":{"x":0,"y":0,"width":1277,"height":1080})"),
            std::string::npos)
      << built;
  EXPECT_NE(built.find(R"("title":"Log","frame":{"x":1285,"y":0,"width":635,"height":1080})"),
            std::string::npos)
      << built;
  EXPECT_TRUE(isDone({"snap", "center-third"}));
  EXPECT_NE(call({"windows", "--json"}).output, built);
  ASSERT_TRUE(isRun(script)) << "the second time, it puts the windows back";
  EXPECT_EQ(call({"windows", "--json"}).output, built);
}

}  // namespace tilwin::desktop
