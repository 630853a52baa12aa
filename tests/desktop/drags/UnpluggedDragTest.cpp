#include "tests/desktop/drags/DragTest.h"

namespace tilwin::desktop {

namespace {

const PluggedDisplay kept{.output = "DUMMY0", .mode = {1440, 900}, .position = {0, 0}, .primary = true};
const PluggedDisplay taken{.output = "DUMMY1", .mode = {1920, 1080}, .position = {1440, 0}};

/// Whether two frames have anything in common.
bool overlap(const Rect& first, const Rect& second) {
  return first.x < second.maxX() && second.x < first.maxX() && first.y < second.maxY() &&
         second.y < first.maxY();
}

}  // namespace

TEST(UnpluggedDrags, AWindowHeldInAZoneOfADisplayThatGoesIsNotPutWhereNobodySeesIt) {
  Session session({.manager = arguments().manager, .displays = {kept, taken}});
  TilwinProcess tilwin(session, arguments().tilwin);
  Desktop& desktop = session.desktop();
  const TestWindow window = session.window();
  ASSERT_TRUE(desktop.activate(window.id()));
  session.input().takeHold(desktop.titleBar(window.id()));
  session.input().comeToRest({3359, 540});
  const auto preview = [&] { return desktop.unmanagedOfClass("Tilwin"); };
  ASSERT_TRUE(desktop.waitUntil([&] { return preview().has_value(); })) << tilwin.log();
  EXPECT_EQ(desktop.topLevelArea(preview().value()), (Rect{2400, 0, 960, 1080}));
  session.server().unplug("DUMMY1");
  EXPECT_TRUE(desktop.waitUntil([&] { return !preview(); }));
  session.input().buttonUp();
  desktop.settle();
  EXPECT_TRUE(overlap(desktop.frame(window.id()).value_or(Rect()), {0, 0, 1440, 900}));
  EXPECT_NE(desktop.frame(window.id()), (Rect{2400, 0, 960, 1080}));
  EXPECT_TRUE(tilwin.process().running()) << tilwin.log();
  session.input().press(leftHalfKeys);
  EXPECT_TRUE(desktop.waitForFrame(window.id(), {0, 0, 720, 900}));
}

}  // namespace tilwin::desktop
