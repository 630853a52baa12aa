#include "platform/x11/displays/X11Displays.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/contract/ReadDisplays.h"

namespace tilwin::x11 {

namespace {

constexpr Rect whole{0, 0, 1920, 1080};

desktop::TestWindowOptions panelAtTop(int depth) {
  return {.title = "Panel",
          .area = {0, 0, 1920, 40},
          .kind = desktop::WindowKind::dock,
          .strut = {.top = depth},
          .strutSpans = {0, 0, 0, 0, 0, 1919, 0, 0}};
}

}  // namespace

TEST(X11DisplaysOfServer, ThePrimaryOneComesFirstWhereverItStands) {
  const desktop::PluggedDisplay left{.output = "DUMMY0", .mode = {1440, 900}, .position = {0, 0}};
  const desktop::PluggedDisplay right{
      .output = "DUMMY1", .mode = {1920, 1080}, .position = {1440, 0}, .primary = true};
  desktop::Session session({.displays = {left, right}});
  ReadDisplays displays(session);
  ASSERT_EQ(displays.current().size(), 2U);
  EXPECT_EQ(displays.current()[0].frame, (Rect{1440, 0, 1920, 1080}));
  EXPECT_TRUE(displays.current()[0].isPrimary);
  EXPECT_EQ(displays.current()[1].frame, (Rect{0, 0, 1440, 900}));
  EXPECT_FALSE(displays.current()[1].isPrimary);
}

TEST(X11DisplaysOfServer, MonitorsMadeByHandAreNoticedWithoutAWindowManager) {
  desktop::Session session;
  ReadDisplays displays(session);
  session.manager().stop();
  ASSERT_EQ(displays.current().size(), 1U);
  session.server().splitIntoMonitors({1200, 720});
  ASSERT_EQ(displays.current().size(), 2U);
  EXPECT_EQ(displays.current()[1].frame, (Rect{1200, 0, 720, 1080}));
}

TEST(X11DisplaysOfServer, APanelThatGrowsTakesMoreRoom) {
  desktop::Session session;
  ReadDisplays displays(session);
  const auto panel = session.window(panelAtTop(40));
  const auto room = [&](double depth) {
    return session.desktop().waitUntil([&] {
      return displays.current().front().visibleFrame == Rect{0, depth, 1920, 1080 - depth};
    });
  };
  EXPECT_TRUE(room(40));
  auto& hand = session.desktop().connection();
  const std::array<std::uint32_t, 12> deeper{0, 0, 60, 0, 0, 0, 0, 0, 0, 1919, 0, 0};
  xcb_change_property(hand.get(), XCB_PROP_MODE_REPLACE, panel.id(), hand.atom("_NET_WM_STRUT_PARTIAL"),
                      XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(deeper.size()), deeper.data());
  hand.sync();
  EXPECT_TRUE(room(60));
  xcb_delete_property(hand.get(), panel.id(), hand.atom("_NET_WM_STRUT_PARTIAL"));
  hand.sync();
  EXPECT_TRUE(room(40));
  xcb_delete_property(hand.get(), panel.id(), hand.atom("_NET_WM_STRUT"));
  hand.sync();
  EXPECT_TRUE(session.desktop().waitUntil([&] { return displays.current().front().visibleFrame == whole; }));
}

}  // namespace tilwin::x11
