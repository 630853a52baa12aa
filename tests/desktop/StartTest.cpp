#include <gtest/gtest.h>

#include <algorithm>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

/// Tilwin started where something it needs is missing.
class Starting : public testing::Test {
protected:
  ChildProcess start(const Environment& environment) {
    return ChildProcess::start({.argv = {arguments().tilwin.string()},
                                .environment = home_.environment().with(environment),
                                .outputFile = home_.log("tilwin"),
                                .errorFile = home_.log("tilwin-errors")});
  }

  /// Whether it gave up at once, with one line that holds the words.
  testing::AssertionResult givesUp(const Environment& environment, const std::string& words) {
    auto tilwin = start(environment);
    const auto status = tilwin.waitFor(answerTimeout);
    const auto said = tilwin.errorOutput();
    if (status == ExitStatus{.code = 1, .signal = std::nullopt} && said.find(words) != std::string::npos &&
        std::ranges::count(said, '\n') == 1 && tilwin.output().empty()) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << (status ? "it ended" : "it runs on") << " and said: " << said;
  }

  PrivateHome home_;
};

Environment displayNamed(const std::string& name) {
  Environment result;
  result.set("DISPLAY", name);
  return result;
}

}  // namespace

TEST_F(Starting, WithoutADisplayItSaysSoAndGivesUp) { EXPECT_TRUE(givesUp({}, "DISPLAY is not set")); }

TEST_F(Starting, WithNobodyAnsweringAtTheDisplayItSaysSoAndGivesUp) {
  EXPECT_TRUE(givesUp(displayNamed(":987"), "no X server answers at DISPLAY=:987"));
}

TEST_F(Starting, WithoutAWindowManagerItWaitsForOneAndThenServes) {
  Session session;
  session.manager().stop();
  ChildProcess tilwin = session.start("waiting", {arguments().tilwin.string()});
  const auto says = [&](const std::string& words) {
    return session.desktop().waitUntil([&] { return tilwin.output().find(words) != std::string::npos; },
                                       startTimeout);
  };
  ASSERT_TRUE(says("no EWMH window manager runs yet")) << tilwin.output();
  session.manager().start();
  EXPECT_TRUE(says("29 of 29 shortcuts work")) << tilwin.output();
  const TestWindow window = session.window();
  ASSERT_TRUE(session.desktop().activate(window.id()));
  session.input().press(leftHalfKeys);
  EXPECT_TRUE(session.desktop().waitForFrame(window.id(), leftHalf));
}

TEST_F(Starting, WithoutRandRItSaysSoAndGivesUp) {
  const auto server = XServer::virtualScreen(home_, {1024, 768}, {"-extension", "RANDR"});
  EXPECT_TRUE(givesUp(server->environment(), "RandR 1.5"));
}

TEST_F(Starting, WhenTheServerGoesAwayItEndsCleanly) {
  Session session;
  TilwinProcess tilwin(session, arguments().tilwin);
  session.server().process().end();
  EXPECT_EQ(tilwin.process().waitFor(answerTimeout), (ExitStatus{.code = 0, .signal = std::nullopt}));
  EXPECT_NE(tilwin.log().find("the X server has gone"), std::string::npos) << tilwin.log();
}

}  // namespace tilwin::desktop
