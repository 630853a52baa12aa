#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

constexpr ExitStatus wentWell{.code = 0, .signal = std::nullopt};

/// The finished program, asked about starting at login, without a desktop.
class LoginItemOnTheCommandLine : public testing::Test {
protected:
  std::string say(const std::vector<std::string>& options) {
    std::vector<std::string> command{arguments().tilwin.string()};
    command.insert(command.end(), options.begin(), options.end());
    auto tilwin = ChildProcess::start({.argv = command,
                                       .environment = home_.environment(),
                                       .outputFile = home_.log(std::to_string(++starts_)),
                                       .errorFile = home_.log("errors")});
    EXPECT_EQ(tilwin.waitFor(answerTimeout), wentWell) << tilwin.errorOutput();
    return tilwin.output();
  }

  [[nodiscard]] std::filesystem::path entry() const {
    return home_.config() / "autostart" / "tilwin.desktop";
  }

  [[nodiscard]] std::string entryText() const {
    std::stringstream text;
    text << std::ifstream(entry()).rdbuf();
    return text.str();
  }

  PrivateHome home_;
  int starts_ = 0;
};

}  // namespace

TEST(StatusOnTheCommandLine, IsOneLineAboutTheDisplaysOfThisDesktop) {
  Session session({.displays = {{.output = "DUMMY0", .mode = {1440, 900}, .primary = true},
                                {.output = "DUMMY1", .mode = {1920, 1080}, .position = {1440, 0}}}});
  auto tilwin = session.start("status", {arguments().tilwin.string(), "--status"});
  EXPECT_EQ(tilwin.waitFor(startTimeout), wentWell);
  EXPECT_EQ(tilwin.output(),
            "accessibilityTrusted=true displays=2 signature=1440x900@0,0|1920x1080@1440,0\n");
}

TEST(StatusOnTheCommandLine, NeedsNoWindowManagerAndLeavesARunningTilwinAlone) {
  Session session;
  TilwinProcess running(session, arguments().tilwin);
  session.manager().stop();
  auto tilwin = session.start("status", {arguments().tilwin.string(), "--status"});
  EXPECT_EQ(tilwin.waitFor(startTimeout), wentWell);
  EXPECT_EQ(tilwin.output(), "accessibilityTrusted=true displays=1 signature=1920x1080@0,0\n");
  session.manager().start();
  const TestWindow window = session.window();
  ASSERT_TRUE(session.desktop().activate(window.id()));
  session.input().press(leftHalfKeys);
  EXPECT_TRUE(session.desktop().waitForFrame(window.id(), leftHalf)) << running.log();
}

TEST_F(LoginItemOnTheCommandLine, IsEnabledByAnEntryThatStartsThisProgram) {
  EXPECT_EQ(say({"--enable-login-item"}), "login item enabled\n");
  EXPECT_NE(entryText().find("\nExec=\"" + arguments().tilwin.string() + "\"\n"), std::string::npos)
      << entryText();
}

TEST_F(LoginItemOnTheCommandLine, EnabledTwiceIsEnabledOnce) {
  static_cast<void>(say({"--enable-login-item"}));
  const auto before = std::filesystem::last_write_time(entry());
  EXPECT_EQ(say({"--enable-login-item"}), "login item enabled\n");
  EXPECT_EQ(std::filesystem::last_write_time(entry()), before);
}

TEST_F(LoginItemOnTheCommandLine, IsRemovedWithItsEntryAlsoWhenThereIsNone) {
  static_cast<void>(say({"--enable-login-item"}));
  EXPECT_EQ(say({"--disable-login-item"}), "login item removed\n");
  EXPECT_FALSE(std::filesystem::exists(entry()));
  EXPECT_EQ(say({"--disable-login-item"}), "login item removed\n");
}

TEST_F(LoginItemOnTheCommandLine, IsEnabledWhenBothAreAsked) {
  EXPECT_EQ(say({"--disable-login-item", "--enable-login-item"}), "login item enabled\n");
  EXPECT_TRUE(std::filesystem::exists(entry()));
}

TEST_F(LoginItemOnTheCommandLine, SaysWhyItCannotBeEnabled) {
  home_.write("config/autostart", "a file where the folder should be");
  EXPECT_EQ(
      say({"--enable-login-item"}),
      "login item not enabled: Your desktop did not turn this on. Check that your autostart folder can be "
      "written to, and try again.\n");
}

TEST(StartedByItsLoginItem, TilwinServes) {
  Session session;
  auto enabling = session.start("enabling", {arguments().tilwin.string(), "--enable-login-item"});
  ASSERT_EQ(enabling.waitFor(startTimeout), wentWell);
  const auto entry = session.home().config() / "autostart" / "tilwin.desktop";
  // What starts an entry at login does not wait for the program.
  const auto launcher = session.start("launcher", {"gio", "launch", entry.string()});
  const TestWindow window = session.window();
  ASSERT_TRUE(session.desktop().activate(window.id()));
  EXPECT_TRUE(session.desktop().waitUntil(
      [&] { return launcher.output().find("29 of 29 shortcuts work") != std::string::npos; }, startTimeout))
      << launcher.output();
  session.input().press(leftHalfKeys);
  EXPECT_TRUE(session.desktop().waitForFrame(window.id(), leftHalf));
}

}  // namespace tilwin::desktop
