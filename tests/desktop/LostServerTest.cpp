#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/ReadyLine.h"
#include "tests/desktop/harness/ShortLivedServer.h"

namespace tilwin::desktop {

namespace {

constexpr auto unlimited = std::numeric_limits<std::size_t>::max();
constexpr ExitStatus endedWell{.code = 0, .signal = std::nullopt};
constexpr ExitStatus gaveUp{.code = 1, .signal = std::nullopt};

/// Tilwin, and a server that goes away under it.
class LostServer : public testing::Test {
protected:
  ChildProcess start(const ShortLivedServer& server, const std::vector<std::string>& options = {}) {
    std::vector<std::string> argv{arguments().tilwin.string()};
    argv.insert(argv.end(), options.begin(), options.end());
    auto environment = session_.environment();
    environment.set("DISPLAY", server.display());
    const std::string name = "start-" + std::to_string(++starts_);
    return ChildProcess::start({.argv = argv,
                                .environment = environment,
                                .outputFile = session_.home().log(name),
                                .errorFile = session_.home().log(name + "-errors")});
  }

  /// How many bytes a server says until Tilwin serves, or has answered.
  std::size_t bytesUntil(const std::string& words, const std::vector<std::string>& options = {}) {
    const ShortLivedServer server(session_.server().display(), unlimited);
    auto tilwin = start(server, options);
    const auto said = [&] { return tilwin.output() + tilwin.errorOutput(); };
    EXPECT_TRUE(
        session_.desktop().waitUntil([&] { return said().find(words) != std::string::npos; }, startTimeout))
        << said();
    return server.said();
  }

  Session session_;
  int starts_ = 0;
};

/// Whether it said of the lost server, as its last words, and of nothing that is not so.
testing::AssertionResult saysThatTheServerIsLost(const std::string& log) {
  constexpr std::array truths{"the X server has gone", "no X server answers"};
  std::istringstream lines(log);
  std::string last;
  for (std::string line; std::getline(lines, line); last = line) {
    const bool served = last.empty() || last.find("29 of 29 shortcuts work") != std::string::npos;
    if (!served) return testing::AssertionFailure() << "it said: " << log;
  }
  const auto holds = [&](const char* truth) { return last.find(truth) != std::string::npos; };
  if (std::ranges::any_of(truths, holds)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "it said: " << log;
}

}  // namespace

TEST_F(LostServer, WhileItRunsEndsItInGoodOrder) {
  TilwinProcess tilwin(session_, arguments().tilwin);
  session_.server().process().end();
  EXPECT_EQ(tilwin.process().waitFor(answerTimeout), endedWell);
  EXPECT_TRUE(saysThatTheServerIsLost(tilwin.log()));
}

TEST_F(LostServer, AtAnyMomentOfTheStartIsSaidAndEndsIt) {
  constexpr std::size_t moments = 40;
  const std::size_t whole = bytesUntil("shortcuts work");
  for (std::size_t moment = 0; moment < moments; ++moment) {
    const std::size_t bytes = whole * moment / moments;
    SCOPED_TRACE(std::to_string(bytes) + " of " + std::to_string(whole) + " bytes");
    const ShortLivedServer server(session_.server().display(), bytes);
    auto tilwin = start(server);
    const auto status = tilwin.waitFor(startTimeout);
    EXPECT_TRUE(status == gaveUp || status == endedWell) << testing::PrintToString(status);
    EXPECT_TRUE(saysThatTheServerIsLost(tilwin.errorOutput()));
  }
}

TEST_F(LostServer, AtAnyMomentOfAnAnswerIsNoAnswer) {
  constexpr std::size_t moments = 20;
  const std::size_t whole = bytesUntil("displays=1", {"--status"});
  for (std::size_t moment = 0; moment < moments; ++moment) {
    const std::size_t bytes = whole * moment / moments;
    SCOPED_TRACE(std::to_string(bytes) + " of " + std::to_string(whole) + " bytes");
    const ShortLivedServer server(session_.server().display(), bytes);
    auto tilwin = start(server, {"--status"});
    const auto status = tilwin.waitFor(startTimeout);
    // What is lost after the answer does not matter.
    if (status == endedWell && tilwin.output().find("displays=1 ") != std::string::npos) continue;
    EXPECT_EQ(status, gaveUp);
    EXPECT_EQ(tilwin.output(), "");
    EXPECT_TRUE(saysThatTheServerIsLost(tilwin.errorOutput()));
  }
}

TEST_F(LostServer, TakesNoRecordOfADragWithItThoughNobodyReadsWhatIsSaid) {
  session_.home().write("config/Tilwin/Tilwin.conf",
                        "[General]\ntilwin.settings.v1=\"{\\\"shadowRecording\\\":true}\"\n");
  // Whoever has read that it works reads no further.
  auto tilwin = startReady({.argv = {arguments().tilwin.string()}, .environment = session_.environment()},
                           startTimeout, STDERR_FILENO);
  ASSERT_NE(tilwin.line.find("29 of 29 shortcuts work"), std::string::npos) << tilwin.line;
  const TestWindow window = session_.window();
  ASSERT_TRUE(session_.desktop().activate(window.id()));
  session_.input().takeHold(session_.desktop().titleBar(window.id()));
  session_.input().comeToRest({0, 540});
  session_.input().buttonUp();
  ASSERT_TRUE(session_.desktop().waitForFrame(window.id(), leftHalf));
  session_.server().process().end();
  EXPECT_EQ(tilwin.process.waitFor(answerTimeout), endedWell);
  std::stringstream records;
  records << std::ifstream(session_.home().data() / "Tilwin" / "shadow.jsonl").rdbuf();
  EXPECT_NE(records.str().find("leftHalf"), std::string::npos) << records.str();
}

}  // namespace tilwin::desktop
