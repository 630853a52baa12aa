#include "platform/x11/wire/ClientList.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using Windows = std::vector<xcb_window_t>;

/// A desktop whose lists of windows are written by the test, in place of its window manager.
class X11ClientList : public testing::Test {
protected:
  X11ClientList() {
    setenv("DISPLAY", session_.server().display().c_str(), 1);
    x_.emplace(log_);
    session_.manager().stop();
  }

  void list(const std::string& property, const Windows& windows) {
    auto& manager = session_.desktop().connection();
    xcb_change_property(manager.get(), XCB_PROP_MODE_REPLACE, manager.root(), manager.atom(property),
                        XCB_ATOM_WINDOW, 32, static_cast<std::uint32_t>(windows.size()), windows.data());
    manager.sync();
  }

  desktop::Session session_;
  FailingLog log_;
  std::optional<X11Connection> x_;
};

}  // namespace

TEST_F(X11ClientList, IsReadOldestFirstAndFromTheTopOfTheStack) {
  list("_NET_CLIENT_LIST", {1, 2, 3});
  list("_NET_CLIENT_LIST_STACKING", {3, 1, 2});
  EXPECT_EQ(managedWindows(*x_), (Windows{1, 2, 3}));
  EXPECT_EQ(managedWindowsFromTheTop(*x_), (Windows{2, 1, 3}));
}

TEST_F(X11ClientList, AWindowNotYetInTheStackIsOnTopOfIt) {
  list("_NET_CLIENT_LIST", {1, 2, 3});
  list("_NET_CLIENT_LIST_STACKING", {2, 1});
  EXPECT_EQ(managedWindowsFromTheTop(*x_), (Windows{3, 1, 2}));
}

TEST_F(X11ClientList, IsEmptyIfNobodyListsWindows) {
  auto& manager = session_.desktop().connection();
  for (const char* property : {"_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING"}) {
    xcb_delete_property(manager.get(), manager.root(), manager.atom(property));
  }
  manager.sync();
  EXPECT_EQ(managedWindows(*x_), Windows());
  EXPECT_EQ(managedWindowsFromTheTop(*x_), Windows());
}

}  // namespace tilwin::x11
