#include "core/drag/DragFeatures.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace tilwin {
namespace {

constexpr Rect screen{0, 0, 1440, 900};
constexpr NeighbourEdges alone;

DragFeatures featuresOf(std::vector<DragTrace::Sample> samples, const NeighbourEdges& neighbours = alone) {
  const auto features = DragFeatures::make({std::move(samples)}, screen, neighbours);
  EXPECT_TRUE(features.has_value());
  return features.value_or(DragFeatures{});
}

/// Both samples at the same place a second apart.
DragFeatures restingAt(double x, double y, const NeighbourEdges& neighbours = alone) {
  return featuresOf({{0, x, y}, {1, x, y}}, neighbours);
}

TEST(DragFeatures, AreNoneForFewerThanTwoSamples) {
  EXPECT_EQ(DragFeatures::make({}, screen, alone), std::nullopt);
  EXPECT_EQ(DragFeatures::make({{{0, 700, 400}}}, screen, alone), std::nullopt);
}

TEST(DragFeatures, OfTwoSamplesAtOneMomentHaveNoSpeedAndAreSettled) {
  const DragFeatures features = featuresOf({{1, 100, 400}, {1, 20, 400}});
  EXPECT_EQ(features.speed, 0);
  EXPECT_EQ(features.settled, 1);
}

TEST(DragFeatures, MeasureTheDistanceToTheNearestEdge) {
  EXPECT_EQ(restingAt(10, 400).distance, 10);
  EXPECT_EQ(restingAt(1432, 400).distance, 8);
  EXPECT_EQ(restingAt(700, 7).distance, 7);
  EXPECT_EQ(restingAt(700, 897).distance, 3);
}

TEST(DragFeatures, TellWhetherAnotherDisplayLiesAcrossThatEdge) {
  const NeighbourEdges right{.right = true};
  EXPECT_TRUE(restingAt(1432, 400, right).neighbour);
  EXPECT_FALSE(restingAt(10, 400, right).neighbour);
  EXPECT_TRUE(restingAt(700, 7, {.top = true}).neighbour);
  EXPECT_TRUE(restingAt(700, 897, {.bottom = true}).neighbour);
}

TEST(DragFeatures, PreferLeftThenRightThenTopWhereEdgesAreEquallyNear) {
  EXPECT_TRUE(restingAt(10, 10, {.left = true}).neighbour);
  EXPECT_FALSE(restingAt(10, 10, {.top = true}).neighbour);
  EXPECT_TRUE(restingAt(1430, 10, {.right = true}).neighbour);
  EXPECT_FALSE(restingAt(1430, 890, {.bottom = true}).neighbour);
  const auto between = DragFeatures::make({{{0, 50, 450}, {1, 50, 450}}}, {0, 400, 100, 100}, {.left = true});
  ASSERT_TRUE(between.has_value());
  EXPECT_TRUE(between->neighbour);
}

TEST(DragFeatures, MeasureTheDwellAtTheLeftEdgeWhereTheTopOneIsEquallyNear) {
  // Near the left edge for a second, near the top one for a tenth only.
  const DragFeatures features = featuresOf({{0, 10, 400}, {0.9, 10, 100}, {1, 10, 10}});
  EXPECT_EQ(features.dwell, 1);
}

TEST(DragFeatures, MeasureTheSpeedOverTheLastTwelveHundredths) {
  // 100 points in the last 0.12 s, whatever was before.
  const DragFeatures features = featuresOf({{0, 0, 450}, {1, 600, 450}, {1.06, 640, 450}, {1.12, 700, 450}});
  EXPECT_DOUBLE_EQ(features.speed, 100 / (1.12 - 1));
}

TEST(DragFeatures, MeasureTheSpeedAlongTheChord) {
  const DragFeatures features = featuresOf({{0, 700, 450}, {0.1, 900, 450}, {0.2, 700, 450}});
  EXPECT_EQ(features.speed, 0);
  EXPECT_EQ(featuresOf({{0, 700, 450}, {1, 730, 490}}).speed, 50);
}

TEST(DragFeatures, MeasureTheSpeedOverAllThereIsOfAShorterDrag) {
  EXPECT_EQ(featuresOf({{0, 700, 450}, {0.05, 710, 450}}).speed, 10 / 0.05);
}

TEST(DragFeatures, AreSettledByAsMuchAsThePointerHasSlowedFromItsPeak) {
  // 1,000 points a second, then 250.
  const DragFeatures slowed = featuresOf({{0, 0, 450}, {0.5, 500, 450}, {1, 625, 450}});
  EXPECT_DOUBLE_EQ(slowed.settled, 0.75);
  EXPECT_EQ(featuresOf({{0, 0, 450}, {0.5, 500, 450}, {1, 500, 450}}).settled, 1);
}

TEST(DragFeatures, AreNotSettledAtAllWhenLetGoAtFullSpeed) {
  EXPECT_EQ(featuresOf({{0, 0, 450}, {0.5, 100, 450}, {1, 700, 450}}).settled, 0);
}

TEST(DragFeatures, AreSettledWhenThePointerWasNeverFasterThanAPointASecond) {
  EXPECT_EQ(featuresOf({{0, 700, 450}, {1, 701, 450}}).settled, 1);
  EXPECT_EQ(featuresOf({{0, 700, 450}, {1, 701.5, 450}}).settled, 0);
}

TEST(DragFeatures, CountASampleExactlyTwentyFourPointsAwayAsDwelling) {
  EXPECT_EQ(restingAt(24, 400).dwell, 1);
  EXPECT_EQ(restingAt(24.01, 400).dwell, 0);
}

TEST(DragFeatures, CountTheDwellBackToTheFirstSampleOutsideOnly) {
  const DragFeatures features =
      featuresOf({{0, 10, 400}, {1, 30, 400}, {2, 20, 400}, {3, 5, 400}, {3.5, 15, 400}});
  EXPECT_EQ(features.dwell, 1.5);
}

TEST(DragFeatures, CountTheWholeDragAsDwellThatStayedNearTheEdge) {
  EXPECT_EQ(featuresOf({{0.25, 10, 400}, {1, 20, 500}, {2, 5, 600}}).dwell, 1.75);
}

TEST(DragFeatures, WorkOnDisplaysLeftOfAndAboveTheFirst) {
  const auto features =
      DragFeatures::make({{{0, -1990, -500}, {1, -1990, -500}}}, {-2000, -1000, 2000, 1000}, {.left = true});
  ASSERT_TRUE(features.has_value());
  EXPECT_EQ(features->distance, 10);
  EXPECT_EQ(features->dwell, 1);
  EXPECT_TRUE(features->neighbour);
}

TEST(DragFeatureVector, HoldsEachMeasureScaledToOne) {
  const DragFeatures features{
      .distance = 12, .speed = 500, .dwell = 0.15, .settled = 0.5, .neighbour = false};
  EXPECT_EQ(features.vector(), (DragFeatures::Vector{1, 0.5, 0.25, 0.25, 0.5, 0, 0}));
}

TEST(DragFeatureVector, CapsEveryMeasure) {
  DragFeatures features{.distance = 30, .speed = 2500, .dwell = 2, .settled = 1.3, .neighbour = true};
  EXPECT_EQ(features.vector(), (DragFeatures::Vector{1, 1, 1, 1, 1, 1, 1}));
  features.neighbour = false;
  EXPECT_EQ(features.vector(), (DragFeatures::Vector{1, 1, 1, 1, 1, 0, 0}));
}

TEST(DragFeatureVector, HasNothingBelowZero) {
  const DragFeatures features{.distance = -3, .speed = -1, .dwell = -1, .settled = -0.5, .neighbour = true};
  EXPECT_EQ(features.vector(), (DragFeatures::Vector{1, 0, 0, 0, 0, 1, 0}));
}

TEST(DragFeatureVector, HoldsTheSpeedTowardsANeighbourOnceMore) {
  const DragFeatures features{.speed = 500, .neighbour = true};
  EXPECT_EQ(features.vector(), (DragFeatures::Vector{1, 0, 0.25, 0, 0, 1, 0.25}));
}

}  // namespace
}  // namespace tilwin
