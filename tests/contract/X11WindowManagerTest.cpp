#include "platform/x11/wire/X11WindowManager.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "platform/qt/QtMainQueue.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using desktop::Milliseconds;

constexpr Milliseconds startPatience{10000};
constexpr Milliseconds longEnough{1500};

/// A window manager that starts and stops under the program.
class X11WindowManagers : public testing::Test {
protected:
  void connect() {
    setenv("DISPLAY", session.server().display().c_str(), 1);
    x.emplace(log);
    queue.watch(x->fileDescriptor(), [this] { x->dispatch(); });
    queue.beforeEachSleep([this] { x->dispatchQueued(); });
    manager.emplace(*x, queue, log);
    manager->onStart([this] { ++starts; });
    manager->whenRunning([this] { ++tasks; });
  }

  desktop::Session session;
  KeptLog log;
  qt::QtMainQueue queue;
  std::optional<X11Connection> x;
  std::optional<X11WindowManager> manager;
  int starts = 0;
  int tasks = 0;
};

}  // namespace

TEST_F(X11WindowManagers, WhereOneRunsTheTaskIsDoneAtOnce) {
  connect();
  EXPECT_EQ(tasks, 1);
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(X11WindowManagers, WhereNoneRunsTheTaskWaitsForOneAndIsDoneOnce) {
  session.manager().stop();
  connect();
  runMainLoop(longEnough);
  EXPECT_EQ(tasks, 0);
  EXPECT_EQ(log.lines.size(), 1);
  session.manager().start();
  EXPECT_TRUE(runMainLoopUntil([this] { return tasks == 1; }, startPatience));
  EXPECT_EQ(starts, 0);
  session.manager().restart();
  EXPECT_TRUE(runMainLoopUntil([this] { return starts == 1; }, startPatience));
  EXPECT_EQ(tasks, 1);
}

TEST_F(X11WindowManagers, OneThatStopsIsNoStart) {
  connect();
  session.manager().stop();
  runMainLoop(longEnough);
  EXPECT_EQ(starts, 0);
}

}  // namespace tilwin::x11
