#include "platform/x11/displays/Strut.h"

#include <gtest/gtest.h>

#include <array>

namespace tilwin::x11 {

namespace {

using Numbers = std::vector<std::uint32_t>;

/// A small monitor at the left, a larger one at its right; the desktop spans both.
constexpr Rect desktop{0, 0, 4480, 1440};
constexpr Rect small{0, 0, 1920, 1080};
constexpr Rect large{1920, 0, 2560, 1440};

Numbers partialTop(std::uint32_t depth, std::uint32_t start, std::uint32_t end) {
  return {0, 0, depth, 0, 0, 0, 0, 0, start, end, 0, 0};
}

Numbers partialBottom(std::uint32_t depth, std::uint32_t start, std::uint32_t end) {
  return {0, 0, 0, depth, 0, 0, 0, 0, 0, 0, start, end};
}

Numbers partialLeft(std::uint32_t depth, std::uint32_t start, std::uint32_t end) {
  return {depth, 0, 0, 0, start, end, 0, 0, 0, 0, 0, 0};
}

Numbers partialRight(std::uint32_t depth, std::uint32_t start, std::uint32_t end) {
  return {0, depth, 0, 0, 0, 0, start, end, 0, 0, 0, 0};
}

Rect leftOf(const Rect& monitor, const Numbers& partial, const Numbers& whole = {}) {
  return visibleFrame(monitor, strutsOf(partial, whole, desktop));
}

/// Two monitors one upon the other.
constexpr Rect tower{0, 0, 1920, 2160};
constexpr Rect upper{0, 0, 1920, 1080};
constexpr Rect lower{0, 1080, 1920, 1080};

Rect leftInTower(const Rect& monitor, const Numbers& partial) {
  return visibleFrame(monitor, strutsOf(partial, {}, tower));
}

constexpr std::array monitors{small, large};

/// What is left of a monitor by a panel that takes up this area.
Rect leftOfSeen(const Rect& monitor, const Rect& area, const Numbers& partial, const Numbers& whole = {}) {
  std::vector<Strut> seen;
  for (const auto& told : strutsOf(partial, whole, desktop)) {
    seen.push_back(strutSeenAt(area, told, monitors));
  }
  return visibleFrame(monitor, seen);
}

}  // namespace

TEST(Strut, ATopPanelTakesRoomOnItsMonitorAlone) {
  EXPECT_EQ(leftOf(large, partialTop(30, 1920, 4479)), (Rect{1920, 30, 2560, 1410}));
  EXPECT_EQ(leftOf(small, partialTop(30, 1920, 4479)), small);
}

TEST(Strut, ABottomPanelOnAShorterMonitorIsMeasuredFromTheDesktopsEdge) {
  // 40 points high, on the monitor whose bottom lies 360 points above that of the desktop.
  EXPECT_EQ(leftOf(small, partialBottom(400, 0, 1919)), (Rect{0, 0, 1920, 1040}));
  EXPECT_EQ(leftOf(large, partialBottom(400, 0, 1919)), large);
}

TEST(Strut, APanelAtTheInnerEdgeOfTheRightMonitorLeavesTheLeftOneAlone) {
  EXPECT_EQ(leftOf(large, partialLeft(1984, 0, 1439)), (Rect{1984, 0, 2496, 1440}));
  EXPECT_EQ(leftOf(small, partialLeft(1984, 0, 1439)), small);
}

TEST(Strut, APanelAtASideOfOneOfTwoStackedMonitorsLeavesTheOtherOneAlone) {
  EXPECT_EQ(leftInTower(lower, partialLeft(50, 1080, 2159)), (Rect{50, 1080, 1870, 1080}));
  EXPECT_EQ(leftInTower(upper, partialLeft(50, 1080, 2159)), upper);
  EXPECT_EQ(leftInTower(upper, partialRight(50, 0, 1079)), (Rect{0, 0, 1870, 1080}));
  EXPECT_EQ(leftInTower(lower, partialRight(50, 0, 1079)), lower);
}

TEST(Strut, APanelAlongPartOfAnEdgeTakesRoomAlongAllOfIt) {
  EXPECT_EQ(leftOf(small, partialTop(30, 600, 1300)), (Rect{0, 30, 1920, 1050}));
  EXPECT_EQ(leftOf(large, partialBottom(30, 3000, 3500)), (Rect{1920, 0, 2560, 1410}));
  EXPECT_EQ(leftInTower(upper, partialLeft(50, 200, 400)), (Rect{50, 0, 1870, 1080}));
  EXPECT_EQ(leftInTower(lower, partialRight(50, 1200, 1400)), (Rect{0, 1080, 1870, 1080}));
}

TEST(Strut, TheLastPointOfAPanelBelongsToIt) {
  EXPECT_EQ(leftOf(large, partialTop(30, 0, 1920)), (Rect{1920, 30, 2560, 1410}));
  EXPECT_EQ(leftOf(large, partialTop(30, 0, 1919)), large);
  EXPECT_EQ(leftInTower(lower, partialLeft(50, 0, 1080)), (Rect{50, 1080, 1870, 1080}));
  EXPECT_EQ(leftInTower(lower, partialLeft(50, 0, 1079)), lower);
}

TEST(Strut, APanelThatBeginsWhereAMonitorEndsLeavesItAlone) {
  EXPECT_EQ(leftOf(small, partialTop(30, 1919, 4479)), (Rect{0, 30, 1920, 1050}));
  EXPECT_EQ(leftOf(small, partialTop(30, 1920, 4479)), small);
  EXPECT_EQ(leftInTower(upper, partialRight(50, 1079, 2159)), (Rect{0, 0, 1870, 1080}));
  EXPECT_EQ(leftInTower(upper, partialRight(50, 1080, 2159)), upper);
}

TEST(Strut, TwoPanelsOnOneEdgeTakeTheDeeperRoom) {
  const std::array struts{Strut{Strut::Edge::top, {0, 0, 1920, 24}},
                          Strut{Strut::Edge::top, {0, 0, 1920, 30}}};
  EXPECT_EQ(visibleFrame(small, struts), (Rect{0, 30, 1920, 1050}));
}

TEST(Strut, PanelsOnAllFourEdgesAddUp) {
  EXPECT_EQ(visibleFrame(small, strutsOf({}, {10, 20, 30, 40}, small)), (Rect{10, 30, 1890, 1010}));
}

TEST(Strut, ThePartialPropertyWinsOverTheOlderOne) {
  EXPECT_EQ(leftOf(large, partialTop(30, 1920, 4479), {0, 0, 99, 0}), (Rect{1920, 30, 2560, 1410}));
}

TEST(Strut, TheOlderPropertyReachesAlongTheWholeEdge) {
  EXPECT_EQ(leftOf(small, {}, {0, 0, 25, 0}), (Rect{0, 25, 1920, 1055}));
  EXPECT_EQ(leftOf(large, {}, {0, 0, 25, 0}), (Rect{1920, 25, 2560, 1415}));
}

TEST(Strut, AShortPropertyCountsAsMissing) {
  EXPECT_TRUE(strutsOf({1, 2, 3}, {1, 2}, desktop).empty());
  EXPECT_TRUE(strutsOf({}, {}, desktop).empty());
}

TEST(Strut, AStrutThatWouldLeaveNothingIsPassedOver) {
  EXPECT_EQ(leftOf(small, partialTop(2000, 0, 1919)), small);
}

TEST(Strut, APanelIsWhereItIsSeenAlongItsEdge) {
  EXPECT_EQ(leftOfSeen(small, {0, 0, 1920, 26}, {}, {0, 0, 26, 0}), (Rect{0, 26, 1920, 1054}));
  EXPECT_EQ(leftOfSeen(large, {0, 0, 1920, 26}, {}, {0, 0, 26, 0}), large);
  EXPECT_EQ(leftOfSeen(large, {1920, 0, 2560, 26}, partialTop(26, 0, 0)), (Rect{1920, 26, 2560, 1414}));
  EXPECT_EQ(leftOfSeen(small, {1920, 0, 2560, 26}, partialTop(26, 0, 0)), small);
  EXPECT_EQ(leftOfSeen(large, {0, 0, 1920, 26}, partialTop(26, 0, 1920)), large);
}

TEST(Strut, APanelToldFromTheEdgeOfItsMonitorTakesRoomThere) {
  EXPECT_EQ(leftOfSeen(small, {0, 1057, 1920, 23}, partialBottom(23, 0, 1920)), (Rect{0, 0, 1920, 1057}));
  EXPECT_EQ(leftOfSeen(large, {0, 1057, 1920, 23}, partialBottom(23, 0, 1920)), large);
  EXPECT_EQ(leftOfSeen(large, {1920, 0, 50, 1440}, partialLeft(50, 0, 1439)), (Rect{1970, 0, 2510, 1440}));
}

TEST(Strut, APanelMayReserveMoreThanItsDepth) {
  EXPECT_EQ(leftOfSeen(small, {0, 0, 1920, 1}, partialTop(40, 0, 1919)), (Rect{0, 40, 1920, 1040}));
  EXPECT_EQ(leftOfSeen(large, {4430, 0, 50, 1440}, partialRight(60, 0, 1439)), (Rect{1920, 0, 2500, 1440}));
}

TEST(Strut, APanelThatIsSeenAtNoEdgeTakesTheRoomItTells) {
  EXPECT_EQ(leftOfSeen(small, {0, -30, 1920, 30}, partialTop(30, 0, 1919)), (Rect{0, 30, 1920, 1050}));
  EXPECT_EQ(leftOfSeen(large, {2500, 500, 400, 300}, partialLeft(100, 0, 1079)), large);
  EXPECT_EQ(leftOfSeen(small, {2500, 500, 400, 300}, partialLeft(100, 0, 1079)), (Rect{100, 0, 1820, 1080}));
}

}  // namespace tilwin::x11
