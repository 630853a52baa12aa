#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <thread>

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/PrivateHome.h"
#include "tests/desktop/harness/ReadyLine.h"

namespace tilwin::desktop {

namespace {

/// A shell script started in a home of its own.
class Processes : public testing::Test {
protected:
  Launch script(const std::string& text) const {
    return {
        .argv = {"sh", "-c", text}, .environment = home_.environment(), .outputFile = home_.log("script")};
  }

  /// Asks again for a while: what ends here is told by nobody.
  static bool soon(const Predicate& predicate) {
    const auto until = Clock::now() + answerTimeout;
    while (!predicate() && Clock::now() < until) std::this_thread::sleep_for(Milliseconds{20});
    return predicate();
  }

  PrivateHome home_;
};

}  // namespace

TEST_F(Processes, TellTheirExitCode) {
  auto child = ChildProcess::start(script("exit 7"));
  EXPECT_EQ(child.waitFor(answerTimeout), (ExitStatus{7, std::nullopt}));
  EXPECT_FALSE(child.running());
}

TEST_F(Processes, TellTheSignalThatEndedThem) {
  auto child = ChildProcess::start(script("kill -9 $$"));
  EXPECT_EQ(child.waitFor(answerTimeout), (ExitStatus{std::nullopt, SIGKILL}));
}

TEST_F(Processes, AreAwaitedNoLongerThanAsked) {
  auto child = ChildProcess::start(script("sleep 60"));
  EXPECT_EQ(child.waitFor(Milliseconds{50}), std::nullopt);
  EXPECT_TRUE(child.running());
}

TEST_F(Processes, ThatIgnoreAPoliteEndAreKilled) {
  auto child = ChildProcess::start(script("trap '' TERM; while :; do sleep 0.1; done"));
  EXPECT_EQ(child.waitFor(Milliseconds{200}), std::nullopt);
  EXPECT_EQ(child.end(Milliseconds{100}), (ExitStatus{std::nullopt, SIGKILL}));
}

TEST_F(Processes, EndWithTheirWholeGroup) {
  { auto child = ChildProcess::start(script("sleep 60 & sleep 60 & exit 0")); }
  EXPECT_TRUE(soon([&] { return home_.processes().empty(); }));
}

TEST_F(Processes, ThatCannotStartAreAnError) {
  const Launch launch{.argv = {"no-such-program-anywhere"}, .environment = home_.environment()};
  EXPECT_THROW(ChildProcess::start(launch), HarnessError);
}

TEST_F(Processes, GetTheGivenEnvironmentAndNothingElse) {
  setenv("TILWIN_TEST_INHERITED", "yes", 1);
  auto launch = script("env");
  launch.environment.set("GIVEN", "word");
  auto child = ChildProcess::start(launch);
  child.waitFor(answerTimeout);
  EXPECT_NE(child.output().find("GIVEN=word\n"), std::string::npos);
  EXPECT_EQ(child.output().find("TILWIN_TEST_INHERITED"), std::string::npos);
  unsetenv("TILWIN_TEST_INHERITED");
}

TEST_F(Processes, MayWriteErrorsToAFileOfTheirOwn) {
  auto launch = script("echo out; echo err >&2");
  launch.errorFile = home_.log("errors");
  auto child = ChildProcess::start(launch);
  child.waitFor(answerTimeout);
  EXPECT_EQ(child.output(), "out\n");
  EXPECT_EQ(child.errorOutput(), "err\n");
}

TEST_F(Processes, SayWhenTheyAreReady) {
  auto ready = startReady(script("echo at last >&3; sleep 60"));
  EXPECT_EQ(ready.line, "at last");
  EXPECT_TRUE(ready.process.running());
}

TEST_F(Processes, ThatEndBeforeTheyAreReadyAreAnError) {
  EXPECT_THROW(startReady(script("echo no; exit 1")), HarnessError);
}

TEST(PrivateHome, IsGoneAfterwardsWithWhatRanInIt) {
  std::filesystem::path path;
  pid_t daemon = 0;
  {
    const PrivateHome home;
    path = home.path();
    // A daemon: in a session of its own, its parent gone.
    auto starter =
        ChildProcess::start({.argv = {"setsid", "--fork", "sleep", "60"}, .environment = home.environment()});
    EXPECT_EQ(starter.waitFor(answerTimeout), (ExitStatus{0, std::nullopt}));
    ASSERT_EQ(home.processes().size(), 1U);
    daemon = home.processes().front();
  }
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_FALSE(std::filesystem::exists("/proc/" + std::to_string(daemon) + "/exe"));
}

TEST(PrivateHome, EndsAlsoWhatIsBetweenTwoPrograms) {
  const std::string again = R"(exec sh -c "$0" "$0")";
  for (int round = 0; round < 20; ++round) {
    std::string path;
    {
      const PrivateHome home;
      path = home.path();
      auto starter = ChildProcess::start(
          {.argv = {"setsid", "--fork", "sh", "-c", again, again}, .environment = home.environment()});
      starter.waitFor(answerTimeout);
    }
    for (const pid_t left : processesIn(path)) {
      ADD_FAILURE() << "process " << left << " was left in round " << round;
      kill(left, SIGKILL);
    }
  }
}

TEST(PrivateHome, KeepsTheStartersDesktopOutOfItsEnvironment) {
  setenv("DISPLAY", ":99", 1);
  setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", 1);
  const PrivateHome home;
  const auto environment = home.environment();
  EXPECT_EQ(environment.get("DISPLAY"), "");
  EXPECT_EQ(environment.get("DBUS_SESSION_BUS_ADDRESS"), "");
  EXPECT_EQ(environment.get("XDG_CONFIG_HOME"), home.config());
  unsetenv("DISPLAY");
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

namespace {

/// This program, holding a session open until it is ended.
class HeldSession : public Processes {
protected:
  HeldSession() {
    holder_ = ChildProcess::start({.argv = {"/proc/self/exe", "--hold-session"},
                                   .environment = home_.environment(),
                                   .outputFile = home_.log("holder")});
    soon([&] { return !inner().empty() || !holder_.running(); });
  }

  /// The home of the session being held, known once it is all there.
  std::string inner() const {
    const std::string text = holder_.output();
    return text.substr(0, text.find('\n'));
  }

  /// The processes of that session: its home's name is in their environment.
  std::vector<pid_t> running() const { return processesIn(inner()); }

  ChildProcess holder_;
};

}  // namespace

TEST_F(HeldSession, LeavesNothingBehindWhenTheProgramIsInterrupted) {
  ASSERT_GE(running().size(), 4U) << holder_.output();
  holder_.signal(SIGINT);
  EXPECT_EQ(holder_.waitFor(answerTimeout), (ExitStatus{std::nullopt, SIGINT}));
  EXPECT_TRUE(soon([&] { return running().empty(); }));
  EXPECT_FALSE(std::filesystem::exists(inner()));
}

TEST_F(HeldSession, LeavesNoProcessBehindWhenTheProgramIsKilled) {
  ASSERT_GE(running().size(), 4U) << holder_.output();
  holder_.signal(SIGKILL);
  EXPECT_EQ(holder_.waitFor(answerTimeout), (ExitStatus{std::nullopt, SIGKILL}));
  EXPECT_TRUE(soon([&] { return running().empty(); }));
  std::filesystem::remove_all(inner());
}

}  // namespace tilwin::desktop
