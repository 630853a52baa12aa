#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/GrabbedKey.h"

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

TEST_F(Starting, WithANamedPipeInPlaceOfItsSettingsItServesAllTheSame) {
  Session session;
  const auto folder = session.home().config() / "Tilwin";
  std::filesystem::create_directories(folder);
  ASSERT_EQ(::mkfifo((folder / "Tilwin.conf").c_str(), 0600), 0);
  TilwinProcess tilwin(session, arguments().tilwin);
  EXPECT_NE(tilwin.log().find("29 of 29 shortcuts work"), std::string::npos) << tilwin.log();
}

TEST_F(Starting, WithItsStandardInputAndOutputsClosedItServesAllTheSame) {
  Session session;
  ChildProcess tilwin =
      session.start("closed", {"/bin/sh", "-c", "exec \"$0\" <&- >&- 2>&-", arguments().tilwin.string()});
  ASSERT_TRUE(session.desktop().waitUntil(
      [&] { return keyIsGrabbed(session.server().display(), leftHalfKeys); }, startTimeout));
  const TestWindow window = session.window();
  ASSERT_TRUE(session.desktop().activate(window.id()));
  session.input().press(leftHalfKeys);
  EXPECT_TRUE(session.desktop().waitForFrame(window.id(), leftHalf));
  const std::filesystem::path descriptors = "/proc/" + std::to_string(tilwin.pid()) + "/fd";
  for (const char* number : {"0", "1", "2"}) {
    EXPECT_EQ(std::filesystem::read_symlink(descriptors / number), "/dev/null") << number;
  }
}

TEST_F(Starting, InALocaleWithAnUnusualDecimalPointItUnderstandsItsSettings) {
  Session session;
  session.home().write("config/Tilwin/Tilwin.conf", R"([General]
tilwin.settings.v1="{\"customAreas\":[{\"id\":\"3F2504E0-4F89-41D3-9A0C-0305E82C3301\",\"name\":\"Half\",\"rect\":{\"x\":0.25,\"y\":0.5,\"width\":0.5,\"height\":0.5},\"shortcut\":{\"keyCode\":15,\"modifiers\":6144}}]}"
)");
  ChildProcess tilwin = session.start("pashto", {"/usr/bin/env", "LOCPATH=" TILWIN_LOCALES,
                                                 "LC_ALL=ps_AF.UTF-8", arguments().tilwin.string()});
  const auto log = [&] { return tilwin.output(); };
  ASSERT_TRUE(session.desktop().waitUntil(
      [&] { return log().find("30 of 30 shortcuts work") != std::string::npos; }, startTimeout))
      << log();
  const TestWindow window = session.window();
  ASSERT_TRUE(session.desktop().activate(window.id()));
  session.input().press("Control+Alt+r");
  EXPECT_TRUE(session.desktop().waitForFrame(window.id(), {480, 540, 960, 540})) << log();
}

}  // namespace tilwin::desktop
