#include <gtest/gtest.h>

#include <memory>

#include "tests/desktop/harness/Session.h"
#include "tests/desktop/harness/selfcheck/ManagerParameter.h"

namespace tilwin::desktop {

namespace {

const PluggedDisplay builtIn{.output = "DUMMY0", .mode = {1920, 1080}, .primary = true};
const PluggedDisplay beside{.output = "DUMMY1", .mode = {2560, 1440}, .position = {1920, 0}};

class PluggedIn : public testing::TestWithParam<Manager> {
protected:
  void SetUp() override {
    session_ = std::make_unique<Session>(SessionOptions{.manager = GetParam(), .displays = {builtIn}});
  }

  std::vector<Rect> frames() {
    std::vector<Rect> result;
    for (const auto& monitor : session_->desktop().monitors()) result.push_back(monitor.frame);
    return result;
  }

  std::unique_ptr<Session> session_;
};

INSTANTIATE_TEST_SUITE_P(, PluggedIn, testing::ValuesIn(allManagers), nameOfManager);

}  // namespace

TEST_P(PluggedIn, ADisplayComesAndGoes) {
  const std::vector<Rect> one{{0, 0, 1920, 1080}};
  const std::vector<Rect> both{{0, 0, 1920, 1080}, {1920, 0, 2560, 1440}};
  EXPECT_EQ(frames(), one);
  session_->server().plug(beside);
  EXPECT_TRUE(session_->desktop().waitUntil([&] { return frames() == both; }));
  session_->server().unplug("DUMMY1");
  EXPECT_TRUE(session_->desktop().waitUntil([&] { return frames() == one; }));
}

TEST_P(PluggedIn, TheManagerMakesRoomOnANewDisplay) {
  session_->server().plug(beside);
  Desktop& desktop = session_->desktop();
  ASSERT_TRUE(desktop.waitUntil([&] { return desktop.workArea() == Rect{0, 0, 4480, 1440}; }));
  const TestWindow window(session_->server().display());
  desktop.place(window.id(), {3200, 0, 1280, 1440});
  EXPECT_TRUE(desktop.waitForFrame(window.id(), {3200, 0, 1280, 1440}));
  EXPECT_TRUE(desktop.activate(window.id()));
  session_->input().movePointer({4000, 1200});
  EXPECT_EQ(session_->input().pointer(), (PixelPoint{4000, 1200}));
}

TEST_P(PluggedIn, DisplaysAreExchangedInOneGo) {
  session_->server().arrange(
      {{.output = "DUMMY2", .mode = {1280, 1024}},
       {.output = "DUMMY3", .mode = {1080, 1920}, .position = {1280, 0}, .primary = true}});
  // The server lists the primary one first.
  const std::vector<Rect> exchanged{{1280, 0, 1080, 1920}, {0, 0, 1280, 1024}};
  EXPECT_TRUE(session_->desktop().waitUntil([&] { return frames() == exchanged; }));
  EXPECT_TRUE(session_->desktop().monitors().at(0).primary);
}

TEST(VirtualScreen, IsCutIntoMonitors) {
  Session session;
  session.server().splitIntoMonitors({1200, 720});
  const auto monitors = session.desktop().monitors();
  ASSERT_EQ(monitors.size(), 2U);
  EXPECT_EQ(monitors[0].frame, (Rect{0, 0, 1200, 1080}));
  EXPECT_EQ(monitors[1].frame, (Rect{1200, 0, 720, 1080}));
}

TEST(VisibleFrame, LosesOnlyTheStrutsThatTouchTheMonitor) {
  const Monitor left{.name = "left", .frame = {0, 0, 1000, 800}, .primary = true};
  const Monitor right{.name = "right", .frame = {1000, 0, 1000, 600}};
  const PixelSize screen{2000, 800};
  const Strut topLeft{.extents = {.top = 30}, .spans = {0, 0, 0, 0, 0, 999, 0, 0}};
  const Strut bottomRight{.extents = {.bottom = 240}, .spans = {0, 0, 0, 0, 0, 0, 1000, 1999}};
  EXPECT_EQ(visibleFrame(left, {topLeft, bottomRight}, screen), (Rect{0, 30, 1000, 770}));
  EXPECT_EQ(visibleFrame(right, {topLeft, bottomRight}, screen), (Rect{1000, 0, 1000, 560}));
}

TEST(VisibleFrame, KeepsOffADockOfAManagedDesktop) {
  Session session;
  const TestWindow dock(session.server().display(), {.area = {0, 0, 1920, 32},
                                                     .kind = WindowKind::dock,
                                                     .strut = {.top = 32},
                                                     .strutSpans = {0, 0, 0, 0, 0, 1919, 0, 0}});
  Desktop& desktop = session.desktop();
  EXPECT_TRUE(desktop.waitUntil([&] { return desktop.workArea() == Rect{0, 32, 1920, 1048}; }));
  EXPECT_EQ(desktop.visibleFrame(desktop.monitors().at(0)), (Rect{0, 32, 1920, 1048}));
}

}  // namespace tilwin::desktop
