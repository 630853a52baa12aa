#include <gtest/gtest.h>
#include <xcb/shape.h>

#include "platform/x11/windows/WindowAtPoint.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

constexpr Point inBoth{500, 400};

desktop::TestWindowOptions unmanaged(const Rect& area) { return {.area = area, .overrideRedirect = true}; }

/// Windows one upon the other, the later the higher.
class X11WindowAtPoint : public testing::Test {
protected:
  X11WindowAtPoint() { setenv("DISPLAY", session.server().display().c_str(), 1); }

  static std::optional<xcb_window_t> under(Point at) {
    SilentLog log;
    const X11Connection x(log);
    return managedWindowAt(x, at);
  }

  /// Leaves nothing of a window but its left part.
  void cutOff(const desktop::TestWindow& window, std::uint16_t widthLeft) {
    auto& hand = session.desktop().connection();
    const xcb_rectangle_t rest{0, 0, widthLeft, 2000};
    xcb_shape_rectangles(hand.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED,
                         window.id(), 0, 0, 1, &rest);
    hand.sync();
  }

  desktop::Session session;
};

}  // namespace

TEST_F(X11WindowAtPoint, WhatIsUnmanagedIsSeenThrough) {
  const auto window = session.window({.area = {200, 150, 640, 480}});
  const auto sheet = session.window(unmanaged({0, 0, 1920, 1080}));
  EXPECT_EQ(under(inBoth), window.id());
}

TEST_F(X11WindowAtPoint, OfSeveralBelowTheUppermostCounts) {
  const auto low = session.window({.area = {200, 150, 640, 480}});
  const auto high = session.window({.area = {300, 200, 640, 480}});
  ASSERT_TRUE(session.desktop().activate(high.id()));
  const auto sheet = session.window(unmanaged({0, 0, 1920, 1080}));
  EXPECT_EQ(under(inBoth), high.id());
  EXPECT_EQ(under({220, 400}), low.id());
}

TEST_F(X11WindowAtPoint, WithNothingManagedThereItIsNone) {
  const auto window = session.window({.area = {200, 150, 640, 480}});
  const auto sheet = session.window(unmanaged({0, 0, 1920, 1080}));
  EXPECT_EQ(under({1500, 900}), std::nullopt);
}

TEST_F(X11WindowAtPoint, AWindowIsNotWhereItsShapeIsNot) {
  const auto low = session.window({.area = {200, 150, 640, 480}});
  const auto high = session.window({.area = {200, 150, 640, 480}, .undecorated = true});
  ASSERT_TRUE(session.desktop().activate(high.id()));
  ASSERT_EQ(under(inBoth), high.id());
  cutOff(high, 100);
  // A manager cuts its frame a moment later.
  EXPECT_TRUE(session.desktop().waitUntil([&] { return under(inBoth) == low.id(); }));
  EXPECT_EQ(under({220, 400}), high.id());
}

TEST_F(X11WindowAtPoint, AWindowThatIsNotShownIsNotThere) {
  const auto away = session.window({.area = {200, 150, 640, 480}});
  const auto sheet = session.window(unmanaged({0, 0, 1920, 1080}));
  ASSERT_EQ(under(inBoth), away.id());
  session.desktop().set(away.id(), desktop::WindowState::hidden, true);
  // A manager hides the frame a moment after the window in it.
  EXPECT_TRUE(session.desktop().waitUntil([&] { return under(inBoth) == std::nullopt; }));
}

TEST_F(X11WindowAtPoint, AListedWindowThatIsUnmappedWhereItStoodIsNotThere) {
  SilentLog log;
  const X11Connection x(log);  // refuses to connect without a window manager
  auto away = session.window({.area = {200, 150, 640, 480}});
  session.manager().stop();
  auto& manager = session.desktop().connection();
  const xcb_window_t listed = away.id();
  xcb_change_property(manager.get(), XCB_PROP_MODE_REPLACE, manager.root(), manager.atom("_NET_CLIENT_LIST"),
                      XCB_ATOM_WINDOW, 32, 1, &listed);
  manager.sync();
  const auto sheet = session.window(unmanaged({0, 0, 1920, 1080}));
  ASSERT_EQ(managedWindowAt(x, inBoth), listed);
  away.unmap();
  EXPECT_TRUE(away.settle());
  EXPECT_EQ(managedWindowAt(x, inBoth), std::nullopt);
}

}  // namespace tilwin::x11
