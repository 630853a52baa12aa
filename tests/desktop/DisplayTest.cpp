#include <gtest/gtest.h>

#include <memory>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

const PluggedDisplay laptop{.output = "DUMMY0", .mode = {1440, 900}, .position = {0, 0}, .primary = true};
const PluggedDisplay monitor{.output = "DUMMY1", .mode = {1920, 1080}, .position = {1440, 0}};
const PluggedDisplay beyond{.output = "DUMMY2", .mode = {1280, 1024}, .position = {3360, 0}};

/// A desktop whose displays come and go, with Tilwin running.
class Displays : public testing::Test {
protected:
  void SetUp() override {
    session_ = std::make_unique<Session>(
        SessionOptions{.manager = arguments().manager, .displays = {laptop, monitor}});
    tilwin_ = std::make_unique<TilwinProcess>(*session_, arguments().tilwin);
    window_ = std::make_unique<TestWindow>(session_->server().display());
    focus();
  }

  Session& session() { return *session_; }
  Desktop& desktop() { return session_->desktop(); }
  void press(const std::string& chord) { session_->input().press(chord); }

  void place(const Rect& frame) {
    desktop().settle();
    desktop().place(window_->id(), frame);
    ASSERT_TRUE(desktop().waitForFrame(window_->id(), frame));
    focus();
  }

  /// Some managers take the focus from all windows when displays change.
  void focus() { ASSERT_TRUE(desktop().activate(window_->id())); }

  testing::AssertionResult stands(const Rect& frame) {
    if (desktop().waitForFrame(window_->id(), frame)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "expected " << text(frame) << ", saw "
                                       << text(desktop().frame(window_->id()).value_or(Rect())) << "\n"
                                       << tilwin_->log();
  }

  std::unique_ptr<Session> session_;
  std::unique_ptr<TilwinProcess> tilwin_;
  std::unique_ptr<TestWindow> window_;
};

}  // namespace

TEST_F(Displays, AWindowSnapsOnTheDisplayItIsOn) {
  place({1700, 200, 800, 600});
  press(leftHalfKeys);
  EXPECT_TRUE(stands({1440, 0, 960, 1080}));
}

TEST_F(Displays, NextAndPreviousDisplayKeepTheShareOfTheDisplayAndWrapAround) {
  place({0, 0, 720, 900});
  press(nextDisplayKeys);
  EXPECT_TRUE(stands({1440, 0, 960, 1080}));
  press(nextDisplayKeys);
  EXPECT_TRUE(stands({0, 0, 720, 900}));
  press(previousDisplayKeys);
  EXPECT_TRUE(stands({1440, 0, 960, 1080}));
  press(previousDisplayKeys);
  EXPECT_TRUE(stands({0, 0, 720, 900}));
}

TEST_F(Displays, ADisplayPluggedInIsUsedByTheNextPress) {
  session().server().plug(beyond);
  place({0, 0, 720, 900});
  press(previousDisplayKeys);
  EXPECT_TRUE(stands({3360, 0, 640, 1024}));
}

TEST_F(Displays, ADisplayUnpluggedIsUsedNoMore) {
  place({0, 0, 720, 900});
  session().server().unplug("DUMMY1");
  focus();
  press(nextDisplayKeys);
  press(leftHalfKeys);
  press("Control+Alt+Right");
  EXPECT_TRUE(stands({720, 0, 720, 900}));
}

TEST_F(Displays, RestoringAFrameOfADisplayThatIsGoneKeepsTheWindowInReach) {
  place({2400, 100, 900, 700});
  press(leftHalfKeys);
  ASSERT_TRUE(stands({1440, 0, 960, 1080}));
  session().server().unplug("DUMMY1");
  place({100, 100, 600, 500});
  press(restoreKeys);
  EXPECT_TRUE(stands({540, 100, 900, 700}));
}

TEST_F(Displays, APanelOnOneDisplayLeavesTheOtherWhole) {
  const TestWindow panel(session().server().display(), {.title = "Panel",
                                                        .area = {1440, 0, 1920, 40},
                                                        .kind = WindowKind::dock,
                                                        .strut = {.top = 40},
                                                        .strutSpans = {0, 0, 0, 0, 1440, 3359, 0, 0}});
  place({100, 100, 600, 500});
  press(leftHalfKeys);
  EXPECT_TRUE(stands({0, 0, 720, 900}));
  press(nextDisplayKeys);
  EXPECT_TRUE(stands({1440, 40, 960, 1040}));
}

TEST_F(Displays, APanelAtTheBottomOfTheShorterDisplayLeavesTheOtherWhole) {
  // Measured from the bottom of the whole desktop, which lies 180 points below that display.
  const TestWindow panel(session().server().display(), {.title = "Panel",
                                                        .area = {200, 860, 900, 40},
                                                        .kind = WindowKind::dock,
                                                        .strut = {.bottom = 220},
                                                        .strutSpans = {0, 0, 0, 0, 0, 0, 200, 1099}});
  place({100, 100, 600, 500});
  press(leftHalfKeys);
  EXPECT_TRUE(stands({0, 0, 720, 860}));
  press(nextDisplayKeys);
  EXPECT_TRUE(stands({1440, 0, 960, 1080}));
}

TEST(HandMadeMonitors, AreDisplaysFromTheNextPressOn) {
  Session session({.manager = arguments().manager});
  const TilwinProcess tilwin(session, arguments().tilwin);
  const TestWindow window(session.server().display());
  ASSERT_TRUE(session.desktop().activate(window.id()));
  session.server().splitIntoMonitors({1200, 720});
  // Some managers arrange their windows anew.
  session.desktop().settle();
  session.input().press(leftHalfKeys);
  EXPECT_TRUE(session.desktop().waitForFrame(window.id(), {0, 0, 600, 1080}));
}

}  // namespace tilwin::desktop
