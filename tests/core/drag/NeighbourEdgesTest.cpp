#include "core/drag/NeighbourEdges.h"

#include <gtest/gtest.h>

namespace tilwin {
namespace {

constexpr NeighbourEdges none;

DisplayInfo displayAt(std::uint32_t id, const Rect& frame) {
  return {.id = id, .frame = frame, .visibleFrame = frame};
}

/// Of a display 1440x900 at the origin, with another one there.
NeighbourEdges edgesNextTo(const Rect& other) {
  const DisplayInfo display = displayAt(1, {0, 0, 1440, 900});
  return NeighbourEdges::around(display, {display, displayAt(2, other)});
}

TEST(NeighbourEdges, AreThoseThatAnotherDisplayAdjoins) {
  EXPECT_EQ(edgesNextTo({-1000, 0, 1000, 900}), (NeighbourEdges{.left = true}));
  EXPECT_EQ(edgesNextTo({1440, 0, 1000, 900}), (NeighbourEdges{.right = true}));
  EXPECT_EQ(edgesNextTo({0, -800, 1440, 800}), (NeighbourEdges{.top = true}));
  EXPECT_EQ(edgesNextTo({0, 900, 1440, 800}), (NeighbourEdges{.bottom = true}));
}

TEST(NeighbourEdges, AllowAGapOrAnOverlapOfTwoPointsAndNoMore) {
  EXPECT_TRUE(edgesNextTo({1442, 0, 1000, 900}).right);
  EXPECT_TRUE(edgesNextTo({1438, 0, 1000, 900}).right);
  EXPECT_EQ(edgesNextTo({1443, 0, 1000, 900}), none);
  EXPECT_EQ(edgesNextTo({1437, 0, 1000, 900}), none);
  EXPECT_TRUE(edgesNextTo({0, -802, 1440, 800}).top);
  EXPECT_EQ(edgesNextTo({0, -803, 1440, 800}), none);
}

TEST(NeighbourEdges, NeedMoreThanOnePointOfCommonEdge) {
  EXPECT_EQ(edgesNextTo({1440, 899, 1000, 900}), none);
  EXPECT_TRUE(edgesNextTo({1440, 898.5, 1000, 900}).right);
  EXPECT_EQ(edgesNextTo({1439, 900, 1000, 800}), none);
  EXPECT_TRUE(edgesNextTo({1438, 900, 1000, 800}).bottom);
}

TEST(NeighbourEdges, AreNoneWhereDisplaysTouchAtACorner) {
  EXPECT_EQ(edgesNextTo({1440, 900, 1000, 900}), none);
  EXPECT_EQ(edgesNextTo({-1000, -900, 1000, 900}), none);
}

TEST(NeighbourEdges, AreNoneForADisplayAloneAndForAnEmptyList) {
  const DisplayInfo display = displayAt(1, {0, 0, 1440, 900});
  EXPECT_EQ(NeighbourEdges::around(display, {display}), none);
  EXPECT_EQ(NeighbourEdges::around(display, {}), none);
}

TEST(NeighbourEdges, PassOverWhateverHasTheDisplaysOwnId) {
  const DisplayInfo display = displayAt(1, {0, 0, 1440, 900});
  EXPECT_EQ(NeighbourEdges::around(display, {displayAt(1, {1440, 0, 1000, 900})}), none);
}

TEST(NeighbourEdges, GoByWholeDisplaysAndNotByWhatBarsLeaveFree) {
  DisplayInfo display = displayAt(1, {0, 0, 1440, 900});
  display.visibleFrame = {80, 25, 1360, 875};
  DisplayInfo other = displayAt(2, {-1000, 0, 1000, 900});
  other.visibleFrame = {-1000, 0, 900, 900};
  EXPECT_TRUE(NeighbourEdges::around(display, {other}).left);
}

TEST(NeighbourEdges, AddUpOverDisplaysInAnyOrder) {
  const DisplayInfo middle = displayAt(2, {0, 0, 1000, 1000});
  const std::vector<DisplayInfo> row{displayAt(1, {-1000, 0, 1000, 1000}), middle,
                                     displayAt(3, {1000, 0, 1000, 1000})};
  const NeighbourEdges both{.left = true, .right = true};
  EXPECT_EQ(NeighbourEdges::around(middle, row), both);
  EXPECT_EQ(NeighbourEdges::around(middle, {row.rbegin(), row.rend()}), both);
}

}  // namespace
}  // namespace tilwin
