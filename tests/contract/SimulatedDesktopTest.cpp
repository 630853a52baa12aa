#include "platform/simulated/SimulatedDesktop.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace tilwin {
namespace {

using namespace std::chrono_literals;

TEST(SimulatedDesktop, RefusesATextThatNamesNoDisplays) {
  EXPECT_THROW(SimulatedDesktop("large"), std::invalid_argument);
  SimulatedDesktop desktop;
  EXPECT_THROW(desktop.setDisplays("1440x900"), std::invalid_argument);
  EXPECT_EQ(desktop.provider()->displays().size(), 1);
}

TEST(SimulatedDesktop, StrutsAreTakenOffTheVisibleFrame) {
  SimulatedDesktop desktop("1440x900+0+0,1000x800+1440+100");
  EXPECT_TRUE(desktop.windows.reserve(2, {.left = 10, .right = 20, .top = 30, .bottom = 40}));
  EXPECT_FALSE(desktop.windows.reserve(3, {.left = 10}));
  const auto displays = desktop.provider()->displays();
  ASSERT_EQ(displays.size(), 2);
  EXPECT_EQ(displays[0].visibleFrame, displays[0].frame);
  EXPECT_EQ(displays[1].visibleFrame, (Rect{1450, 130, 970, 730}));
}

TEST(SimulatedDesktop, AWindowThatIgnoresRequestsIsReportedWhereItStands) {
  SimulatedDesktop desktop;
  desktop.windows.open({.frame = {1, 2, 300, 400}, .answer = SimulatedWindow::Answer::ignores});
  const auto window = desktop.provider()->focusedWindow();
  ASSERT_TRUE(window.has_value());
  EXPECT_TRUE(desktop.provider()->setFrame(window->id, {9, 9, 99, 99}));
  EXPECT_EQ(desktop.provider()->focusedWindow().value().frame, (Rect{1, 2, 300, 400}));
}

TEST(SimulatedDesktop, ListingTheWindowsForgetsTheIdsOfThoseThatAreNotListed) {
  SimulatedDesktop desktop;
  desktop.windows.open({.isStandard = false});
  const auto dialog = desktop.provider()->focusedWindow();
  ASSERT_TRUE(dialog.has_value());
  EXPECT_TRUE(desktop.provider()->setFrame(dialog->id, {1, 2, 300, 400}));
  EXPECT_TRUE(desktop.provider()->allWindows().empty());
  EXPECT_FALSE(desktop.provider()->setFrame(dialog->id, {5, 6, 300, 400}));
}

TEST(SimulatedDesktop, ItsLogKeepsTheLines) {
  SimulatedDesktop desktop;
  desktop.systemLog().write("first");
  desktop.systemLog().write("second");
  EXPECT_EQ(desktop.log.lines(), (std::vector<std::string>{"first", "second"}));
}

TEST(SimulatedDesktop, AKeyTakenOffTheKeyboardCanNeitherBePressedNorRegistered) {
  SimulatedDesktop desktop;
  EXPECT_TRUE(desktop.hotKeys().add({10, 4096}, {0, 1}).has_value());
  desktop.keyboard.removeKey(10);
  EXPECT_FALSE(desktop.keyboard.press({10, 4096}));
  EXPECT_FALSE(desktop.hotKeys().add({10, 256}, {0, 2}).has_value());
}

struct SimulatedClock : testing::Test {
  SimulatedDesktop desktop;
  MainQueue& queue = desktop.mainQueue();
  std::vector<double> moments;
  MainQueue::Seconds start = queue.uptime();

  void note() { moments.push_back(std::round((queue.uptime() - start).count() * 1000)); }
};

TEST_F(SimulatedClock, StandsStillUntilItIsMoved) {
  queue.postAfter(1s, [&] { note(); });
  EXPECT_FALSE(desktop.time.runDue());
  EXPECT_EQ(queue.uptime(), start);
  desktop.time.advance(999ms);
  EXPECT_TRUE(moments.empty());
  desktop.time.advance(1ms);
  EXPECT_EQ(moments, std::vector{1000.0});
}

TEST_F(SimulatedClock, RunsEachTaskAtItsMoment) {
  const auto ticking = queue.repeat(20s, 1s, [&] { note(); });
  queue.postAfter(30s, [&] { note(); });
  desktop.time.advance(60s);
  EXPECT_EQ(moments, (std::vector<double>{20000, 30000, 40000, 60000}));
  EXPECT_NEAR((queue.uptime() - start).count(), 60, 1e-6);
}

TEST_F(SimulatedClock, SettingTheWallClockMovesNoTask) {
  const auto noon = MainQueue::WallTime(std::chrono::sys_days{std::chrono::May / 1 / 2031} + 12h);
  queue.postAfter(10s, [&] { note(); });
  desktop.time.setWallClock(noon);
  EXPECT_EQ(queue.now(), noon);
  desktop.time.advance(10s);
  EXPECT_EQ(queue.now(), noon + 10s);
  EXPECT_EQ(moments, std::vector{10000.0});
}

TEST_F(SimulatedClock, NothingRunsAfterStop) {
  queue.post([&] { queue.stop(3); });
  queue.post([&] { note(); });
  desktop.time.runDue();
  desktop.time.advance(1s);
  EXPECT_EQ(desktop.time.exitStatus(), 3);
  EXPECT_TRUE(moments.empty());
}

TEST(SimulatedClockDeathTest, ARunThatNothingCanStopIsFatal) {
  SimulatedDesktop desktop;
  EXPECT_DEATH(desktop.mainQueue().run(), "nothing left to do");
}

}  // namespace
}  // namespace tilwin
