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
    queue.beforeEachSleep([this] { return x->dispatchQueued(); });
    manager.emplace(*x, queue, log);
    manager->onStart([this] { ++starts; });
    manager->whenRunning([this] { ++tasks; });
  }

  /// A window manager that says that it runs, but nothing else.
  desktop::XConnection halfStarted() {
    session.manager().stop();
    desktop::XConnection client(session.server().display());
    const auto window = xcb_generate_id(client.get());
    xcb_create_window(client.get(), 0, window, client.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_delete_property(client.get(), client.root(), client.atom("_NET_SUPPORTED"));
    for (const auto named : {window, client.root()}) {
      set(client, named, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, window);
    }
    return client;
  }

  static void set(desktop::XConnection& client, xcb_window_t window, const char* property, xcb_atom_t type,
                  std::uint32_t value) {
    xcb_change_property(client.get(), XCB_PROP_MODE_REPLACE, window, client.atom(property), type, 32, 1,
                        &value);
    client.sync();
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

TEST_F(X11WindowManagers, OneThatOnlySaysAgainThatItRunsHasNotStarted) {
  connect();
  auto& root = session.desktop().connection();
  const auto named = root.numbers(root.root(), "_NET_SUPPORTING_WM_CHECK");
  ASSERT_EQ(named.size(), 1U);
  set(root, root.root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, named.front());
  runMainLoop(longEnough);
  EXPECT_EQ(starts, 0);
}

TEST_F(X11WindowManagers, OneThatIsJustStartingIsGivenTimeToSayWhatItTakes) {
  auto starting = halfStarted();
  connect();
  EXPECT_EQ(tasks, 0);
  set(starting, starting.root(), "_NET_SUPPORTED", XCB_ATOM_ATOM, starting.atom("_NET_MOVERESIZE_WINDOW"));
  EXPECT_TRUE(runMainLoopUntil([this] { return tasks == 1; }, startPatience));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(X11WindowManagers, OneThatNeverSaysWhatItTakesIsUsedAsItIs) {
  const auto silent = halfStarted();
  connect();
  EXPECT_TRUE(runMainLoopUntil([this] { return tasks == 1; }, startPatience));
  runMainLoop(longEnough);
  EXPECT_EQ(tasks, 1);
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(X11WindowManagers, OneThatStopsIsNoStart) {
  connect();
  session.manager().stop();
  runMainLoop(longEnough);
  EXPECT_EQ(starts, 0);
}

}  // namespace tilwin::x11
