#include <gtest/gtest.h>

#include <algorithm>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

constexpr int leastWidth = 1100;
constexpr int leastHeight = 700;

/// Windows that cannot be as small as most tiles.
class LargeWindows : public DesktopTest {
protected:
  static TestWindow open() {
    return session().window({.area = {250, 120, 1300, 800}, .minimum = {leastWidth, leastHeight}});
  }
  /// The least size of its frame.
  static Size least(const TestWindow& window) {
    const auto extents = desktop().frameExtents(window.id());
    return {1.0 * leastWidth + extents.left + extents.right,
            1.0 * leastHeight + extents.top + extents.bottom};
  }
};

constexpr const char* toRightHalf = "Control+Alt+Right";
constexpr const char* toRightThird = "Control+Alt+g";
constexpr const char* toCenterThird = "Control+Alt+f";
constexpr const char* toBottomRight = "Control+Alt+k";
constexpr const char* makeSmaller = "Control+Alt+Shift+minus";

}  // namespace

TEST_F(LargeWindows, StandAtTheOuterEdgesOfTheirTileInsideTheScreen) {
  const TestWindow window = open();
  focus(window.id());
  const Size size = least(window);
  press(toRightThird);
  EXPECT_TRUE(stands(window.id(), {1920 - size.width, 0, size.width, 1080}));
  press("Control+Alt+d");
  EXPECT_TRUE(stands(window.id(), {0, 0, size.width, 1080}));
  press(toBottomRight);
  EXPECT_TRUE(stands(window.id(), {1920 - size.width, 1080 - size.height, size.width, size.height}));
  press("Control+Alt+u");
  EXPECT_TRUE(stands(window.id(), {0, 0, size.width, size.height}));
  press(toCenterThird);
  EXPECT_TRUE(stands(window.id(), {(1920 - size.width) / 2, 0, size.width, 1080}, 1));
}

TEST_F(LargeWindows, ShowNoOtherPlaceOnTheirWay) {
  TestWindow window = open();
  focus(window.id());
  const Size size = least(window);
  window.settle();
  window.forget();
  press(toRightThird);
  ASSERT_TRUE(stands(window.id(), {1920 - size.width, 0, size.width, 1080}));
  const auto timesResized = [&] {
    return std::ranges::count(window.recorded().configures, false, &Configure::synthetic);
  };
  // The client may read later than the server says that it stands.
  ASSERT_TRUE(desktop().waitUntil([&] { return timesResized() > 0; }));
  window.settle();
  const auto seen = window.recorded().configures;
  for (const auto& configure : seen) EXPECT_EQ(configure.size, seen.back().size);
  EXPECT_EQ(timesResized(), 1);
}

TEST_F(LargeWindows, StillCycleThroughTheWidthsAndAreRestored) {
  const TestWindow window = open();
  focus(window.id());
  const Rect before = settled(window.id());
  const Size size = least(window);
  const Rect atTheEdge{1920 - size.width, 0, size.width, 1080};
  for (const Rect& expected : {atTheEdge, Rect{640, 0, 1280, 1080}, atTheEdge}) {
    press(toRightHalf);
    EXPECT_TRUE(stands(window.id(), expected));
  }
  // From a third to a half nothing moves, so that only the presses tell.
  press(toRightHalf);
  desktop().settle(Milliseconds{700});  // by then the manager had its time to answer
  EXPECT_TRUE(stands(window.id(), atTheEdge));
  press(toRightHalf);
  EXPECT_TRUE(stands(window.id(), {640, 0, 1280, 1080}));
  press(restoreKeys);
  EXPECT_TRUE(stands(window.id(), before));
}

TEST_F(LargeWindows, LeaveAPanelItsRoom) {
  const TestWindow panel = session().window({.title = "Panel",
                                             .area = {0, 1040, 1920, 40},
                                             .kind = WindowKind::dock,
                                             .strut = {.bottom = 40},
                                             .strutSpans = {0, 0, 0, 0, 0, 0, 0, 1919}});
  const TestWindow window = open();
  focus(window.id());
  const Size size = least(window);
  press(toBottomRight);
  EXPECT_TRUE(stands(window.id(), {1920 - size.width, 1040 - size.height, size.width, size.height}));
}

TEST_F(LargeWindows, MadeSmallerAtTheirLeastSizeStayWhereTheyAre) {
  const TestWindow window = open();
  focus(window.id());
  const Size size = least(window);
  placeByHand(window.id(), {300, 150, size.width, size.height});
  ASSERT_TRUE(stands(window.id(), {300, 150, size.width, size.height}));
  for (int count = 0; count < 2; ++count) press(makeSmaller);
  desktop().settle();
  EXPECT_TRUE(stands(window.id(), {300, 150, size.width, size.height}));
  press("Control+Alt+Shift+equal");
  EXPECT_TRUE(stands(window.id(), {268, 118, size.width + 64, size.height + 64}));
}

TEST_F(LargeWindows, OfFixedProportionsStayInsideTheScreen) {
  const TestWindow window = session().window({.area = {300, 200, 960, 540}, .aspect = {16, 9}});
  focus(window.id());
  for (const char* keys : {toRightThird, toBottomRight, toCenterThird, "Control+Alt+Down"}) {
    SCOPED_TRACE(keys);
    press(keys);
    desktop().settle(Milliseconds{500});  // what it came out as has been noticed by then
    const Rect frame = settled(window.id());
    EXPECT_GE(frame.x, 0) << text(frame);
    EXPECT_GE(frame.y, 0) << text(frame);
    EXPECT_LE(frame.maxX(), 1920) << text(frame);
    EXPECT_LE(frame.maxY(), 1080) << text(frame);
  }
}

}  // namespace tilwin::desktop
