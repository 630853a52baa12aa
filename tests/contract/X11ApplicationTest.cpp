#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>

#include "platform/x11/windows/WindowReader.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

/// Which application a window with these properties is said to belong to.
std::string applicationOf(desktop::TestWindowOptions options) {
  desktop::Session session;
  setenv("DISPLAY", session.server().display().c_str(), 1);
  options.className = "Notes-class";
  const desktop::TestWindow window(session.server().display(), options);
  SilentLog log;
  const X11Connection x(log);
  const std::array<xcb_window_t, 1> windows{window.id()};
  return readWindows(x, windows).at(0).application;
}

}  // namespace

TEST(X11Application, IsTheGtkApplicationIdBeforeAnythingElse) {
  EXPECT_EQ(applicationOf({.gtkApplicationId = "org.example.Gtk", .kdeDesktopFile = "org.example.kde"}),
            "org.example.Gtk");
}

TEST(X11Application, IsTheDesktopFileThatKdeNamesBeforeTheClass) {
  EXPECT_EQ(applicationOf({.kdeDesktopFile = "org.example.kde"}), "org.example.kde");
}

TEST(X11Application, IsTheClassOfAWindowThatNamesNoDesktopFile) {
  EXPECT_EQ(applicationOf({}), "Notes-class");
}

}  // namespace tilwin::x11
