#include "core/geometry/Rect.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <unordered_set>

#include "tests/core/Arbitrary.h"

namespace tilwin {
namespace {

constexpr Rect square{10, 20, 100, 100};

bool liesIn(const Rect& inner, const Rect& outer) {
  return inner.x >= outer.x && inner.y >= outer.y && inner.maxX() <= outer.maxX() &&
         inner.maxY() <= outer.maxY();
}

TEST(Rect, FarEdgesAndCentreFollowFromOriginAndSize) {
  EXPECT_EQ(square.maxX(), 110);
  EXPECT_EQ(square.maxY(), 120);
  EXPECT_EQ(square.midX(), 60);
  EXPECT_EQ(square.midY(), 70);
}

TEST(Rect, ContainsItsLeftAndTopEdges) {
  EXPECT_TRUE(square.contains(10, 20));
  EXPECT_TRUE(square.contains(109.9, 119.9));
}

TEST(Rect, DoesNotContainAPointOnItsRightOrBottomEdge) {
  EXPECT_FALSE(square.contains(110, 50));
  EXPECT_FALSE(square.contains(50, 120));
}

TEST(Rect, DoesNotContainAPointBeforeItsOrigin) {
  EXPECT_FALSE(square.contains(9.9, 50));
  EXPECT_FALSE(square.contains(50, 19.9));
}

TEST(Rect, IsCloseWhenEveryFieldIsWithinTheToleranceInclusive) {
  EXPECT_TRUE(square.isClose({11, 19, 101, 99}, 1));
  EXPECT_FALSE(square.isClose({11.5, 20, 100, 100}, 1));
  EXPECT_FALSE(square.isClose({10, 18.5, 100, 100}, 1));
  EXPECT_FALSE(square.isClose({10, 20, 101.5, 100}, 1));
  EXPECT_FALSE(square.isClose({10, 20, 100, 98.5}, 1));
}

TEST(Rect, OverlapFractionIsTheSharedPartOfItsOwnArea) {
  EXPECT_EQ(square.overlapFraction({60, 20, 500, 500}), 0.5);
  EXPECT_EQ(square.overlapFraction({60, 70, 500, 500}), 0.25);
  EXPECT_EQ((Rect{60, 70, 500, 500}).overlapFraction(square), 0.01);
}

TEST(Rect, OverlapFractionOfTouchingRectanglesIsNothing) {
  EXPECT_EQ(square.overlapFraction({110, 20, 50, 50}), 0);
  EXPECT_EQ(square.overlapFraction({10, 120, 50, 50}), 0);
}

TEST(Rect, OverlapFractionOfAnEmptyRectangleIsNothingWhateverTheOtherIs) {
  EXPECT_EQ((Rect{10, 20, 0, 100}).overlapFraction(square), 0);
  EXPECT_EQ((Rect{10, 20, 100, 0}).overlapFraction(square), 0);
  EXPECT_EQ((Rect{50, 50, -10, 10}).overlapFraction(square), 0);
}

TEST(Rect, MovedIntoAnAreaPushesItInside) {
  const Rect area{0, 25, 1440, 875};
  EXPECT_EQ((Rect{-50, 0, 300, 200}).moved(area), (Rect{0, 25, 300, 200}));
  EXPECT_EQ((Rect{2000, 1000, 300, 200}).moved(area), (Rect{1140, 700, 300, 200}));
  EXPECT_EQ((Rect{100, 100, 300, 200}).moved(area), (Rect{100, 100, 300, 200}));
}

TEST(Rect, MovedIntoASmallerAreaTakesTheAreasSizeAndOrigin) {
  const Rect area{0, 25, 1440, 875};
  EXPECT_EQ((Rect{700, 100, 3000, 200}).moved(area), (Rect{0, 100, 1440, 200}));
  EXPECT_EQ((Rect{700, 100, 300, 2000}).moved(area), (Rect{700, 25, 300, 875}));
}

TEST(Rect, RoundsHalvesAwayFromZero) {
  EXPECT_EQ((Rect{2.5, -2.5, 0.49, -0.5}).rounded(), (Rect{3, -3, 0, -1}));
}

TEST(Rect, EqualityIsExact) {
  EXPECT_EQ(square, (Rect{10, 20, 100, 100}));
  EXPECT_NE(square, (Rect{10, 20, 100, 100.0000001}));
}

TEST(Rect, IsHashable) {
  const std::unordered_set<Rect> seen{
      square, {10, 20, 100, 100}, {20, 10, 100, 100}, {0.0, 0, 1, 1}, {-0.0, 0, 1, 1}};
  EXPECT_EQ(seen.size(), 3);
}

RC_GTEST_PROP(RectProperties, WhatIsMovedIntoAnAreaLiesInItAndStaysThere, ()) {
  const Rect area = arbitrary::area();
  const Rect moved = arbitrary::nearby(area).moved(area);
  RC_ASSERT(liesIn(moved, area));
  RC_ASSERT(moved.moved(area) == moved);
}

RC_GTEST_PROP(RectProperties, WhatLiesInTheAreaIsNotMoved, ()) {
  const Rect area = arbitrary::area();
  const Rect rect = arbitrary::inside(area);
  RC_ASSERT(rect.moved(area) == rect);
}

RC_GTEST_PROP(RectProperties, OverlapFractionIsAShare, ()) {
  const Rect area = arbitrary::area();
  const Rect rect = arbitrary::nearby(area);
  const double share = rect.overlapFraction(area);
  RC_ASSERT(share >= 0);
  RC_ASSERT(share <= 1);
  RC_ASSERT(rect.overlapFraction(rect) == 1);
  RC_ASSERT((share == 1) == liesIn(rect, area));
}

RC_GTEST_PROP(RectProperties, RoundingTwiceChangesNothingMore, ()) {
  const Rect rounded = arbitrary::anyRect().rounded();
  RC_ASSERT(rounded.rounded() == rounded);
}

TEST(Rect, IsPlaceableUpTo32767PointsFromTheOriginOnEachSide) {
  EXPECT_TRUE((Rect{-32767, -32767, 65534, 65534}.isPlaceable()));
  EXPECT_FALSE((Rect{-32768, 0, 10, 10}.isPlaceable()));
  EXPECT_FALSE((Rect{0, -32768, 10, 10}.isPlaceable()));
  EXPECT_FALSE((Rect{32758, 0, 10, 10}.isPlaceable()));
  EXPECT_FALSE((Rect{0, 32758, 10, 10}.isPlaceable()));
}

TEST(Rect, IsNotPlaceableWhereAFieldIsNoFiniteNumber) {
  for (const double odd :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    EXPECT_FALSE((Rect{odd, 0, 1, 1}.isPlaceable()));
    EXPECT_FALSE((Rect{0, odd, 1, 1}.isPlaceable()));
    EXPECT_FALSE((Rect{0, 0, odd, 1}.isPlaceable()));
    EXPECT_FALSE((Rect{0, 0, 1, odd}.isPlaceable()));
  }
}

TEST(Rect, InsetKeepsTheMarginFreeOnEachSideAndNeverVanishes) {
  EXPECT_EQ((Rect{10, 20, 100, 50}.inset(8)), (Rect{18, 28, 84, 34}));
  EXPECT_EQ((Rect{10, 20, 100, 50}.inset(0)), (Rect{10, 20, 100, 50}));
  EXPECT_EQ((Rect{10, 20, 100, 50}.inset(25)), (Rect{35, 45, 50, 1}));
}

}  // namespace
}  // namespace tilwin
