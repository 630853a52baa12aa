#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

/// Window managers that come after Tilwin, and others that take their place.
class ManagerChanges : public testing::Test {
protected:
  void press(const std::string& chord) { session_.input().press(chord); }

  testing::AssertionResult stands(const Rect& frame) {
    if (desktop_.waitForFrame(window_->id(), frame)) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "expected " << text(frame) << ", saw " << text(desktop_.frame(window_->id()).value_or(Rect()));
  }

  Session session_{{.manager = arguments().manager}};
  Desktop& desktop_ = session_.desktop();
  std::optional<TestWindow> window_;
};

/// One that differs in how it is asked to move windows from most of those that take only the other way.
constexpr Manager successorOf(Manager manager) {
  return manager == Manager::openbox ? Manager::metacity : Manager::openbox;
}

}  // namespace

TEST_F(ManagerChanges, AManagerThatComesLaterIsWaitedForAndThenServed) {
  session_.manager().stop();
  ChildProcess tilwin = session_.start("waiting", {arguments().tilwin.string()});
  const auto says = [&](const std::string& words) {
    return desktop_.waitUntil([&] { return tilwin.output().find(words) != std::string::npos; }, startTimeout);
  };
  ASSERT_TRUE(says("no EWMH window manager runs yet")) << tilwin.output();
  session_.manager().start();
  EXPECT_TRUE(says("29 of 29 shortcuts work")) << tilwin.output();
  window_.emplace(session_.server().display());
  ASSERT_TRUE(desktop_.activate(window_->id()));
  press(leftHalfKeys);
  EXPECT_TRUE(stands(leftHalf)) << tilwin.output();
}

TEST_F(ManagerChanges, EachManagerThatTakesOverIsAskedInItsOwnWay) {
  const TilwinProcess tilwin(session_, arguments().tilwin);
  window_.emplace(session_.server().display());
  ASSERT_TRUE(desktop_.activate(window_->id()));
  press(leftHalfKeys);
  ASSERT_TRUE(stands(leftHalf)) << tilwin.log();
  session_.manager().stop();
  WindowManager other(successorOf(arguments().manager), {}, session_.home(), session_.environment(),
                      desktop_);
  ASSERT_TRUE(desktop_.activate(window_->id()));
  press("Control+Alt+Right");
  EXPECT_TRUE(stands(rightHalf)) << tilwin.log();
  other.stop();
  session_.manager().start();
  ASSERT_TRUE(desktop_.activate(window_->id()));
  press("Control+Alt+u");
  EXPECT_TRUE(stands({0, 0, 960, 540})) << tilwin.log();
}

}  // namespace tilwin::desktop
