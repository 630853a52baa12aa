#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/GrabbedKey.h"

namespace tilwin::desktop {

namespace {

/// A user's first session with Tilwin, on a desktop that shows notifications, where another program holds a
/// shortcut.
class FirstStart : public testing::Test {
protected:
  void SetUp() override {
    notifier_ = session_.start("dunst", {"dunst"});
    ASSERT_EQ(run({"gdbus", "wait", "--session", "--timeout", "20", "org.freedesktop.Notifications"}), "");
  }

  void startTilwin() { tilwin_ = session_.start("tilwin", {arguments().tilwin.string()}); }
  void endTilwin() {
    tilwin_.signal(SIGTERM);
    tilwin_.waitFor(answerTimeout);
  }

  std::string run(const std::vector<std::string>& argv) {
    auto process = session_.start("run" + std::to_string(++runs_), argv);
    process.waitFor(startTimeout);
    return process.output();
  }
  bool shows(const std::string& count) {
    return session_.desktop().waitUntil([&] {
      return run({"dunstctl", "count", "displayed"}) == count + "\n";
    });
  }
  bool hasSettings() {
    auto& desktop = session_.desktop();
    return desktop.waitUntil([&] {
      return std::ranges::any_of(desktop.clients(),
                                 [&](WindowId window) { return desktop.title(window) == "Tilwin Settings"; });
    });
  }

  Session session_;
  GrabbedKey taken_{session_.server().display(), "Control+Alt+Left"};
  ChildProcess notifier_;
  ChildProcess tilwin_;
  int runs_ = 0;
};

}  // namespace

TEST_F(FirstStart, TellsOnceOfTakenShortcutsAndOpensThemOnDemand) {
  startTilwin();
  ASSERT_TRUE(shows("1"));
  run({"dunstctl", "action"});
  EXPECT_TRUE(hasSettings());
  endTilwin();
  run({"dunstctl", "close-all"});
  ASSERT_TRUE(shows("0"));
  startTilwin();
  ASSERT_TRUE(session_.desktop().waitUntil(
      [&] { return tilwin_.output().find("shortcuts work") != std::string::npos; }));
  session_.desktop().settle();
  EXPECT_TRUE(shows("0")) << "never again";
}

}  // namespace tilwin::desktop
