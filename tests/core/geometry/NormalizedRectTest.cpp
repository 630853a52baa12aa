#include "core/geometry/NormalizedRect.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/core/Arbitrary.h"

namespace tilwin {
namespace {

TEST(NormalizedRect, IsTheFractionsOfTheArea) {
  EXPECT_EQ(NormalizedRect::of({360, 250, 720, 225}, {0, 25, 1440, 900}),
            (NormalizedRect{0.25, 0.25, 0.5, 0.25}));
}

TEST(NormalizedRect, FractionsAreNotClampedWhenMade) {
  EXPECT_EQ(NormalizedRect::of({-100, 300, 400, 10}, {0, 0, 200, 100}), (NormalizedRect{-0.5, 3, 2, 0.1}));
}

TEST(NormalizedRect, AnAreaNarrowerThanAPointCountsAsOnePoint) {
  EXPECT_EQ(NormalizedRect::of({3, 4, 5, 6}, {1, 1, 0.5, 0.5}), (NormalizedRect{2, 3, 5, 6}));
  EXPECT_EQ(NormalizedRect::of({3, 4, 5, 6}, {1, 1, 1, 1}), (NormalizedRect{2, 3, 5, 6}));
}

TEST(NormalizedRect, AnEmptyAreaNeverDividesByZero) {
  EXPECT_EQ(NormalizedRect::of({3, 4, 5, 6}, {1, 1, 0, 0}), (NormalizedRect{2, 3, 5, 6}));
}

TEST(NormalizedRect, TurnsBackIntoWholePoints) {
  EXPECT_EQ((NormalizedRect{0.25, 0.5, 0.5, 0.5}).rect({0, 25, 1441, 875}), (Rect{360, 463, 721, 438}));
}

TEST(NormalizedRect, StartsBeforeTheLastTwentiethAndIsATwentiethAtLeast) {
  EXPECT_EQ((NormalizedRect{0.97, -0.2, 0.5, 0.01}).rect({0, 0, 1000, 800}), (Rect{950, 0, 50, 40}));
}

TEST(NormalizedRect, DoesNotRunPastTheAreasEdges) {
  EXPECT_EQ((NormalizedRect{0.75, 0.5, 0.5, 3}).rect({100, 100, 1000, 800}), (Rect{850, 500, 250, 400}));
}

RC_GTEST_PROP(NormalizedRectProperties, ItsPointsAlwaysLieInTheAreaAndFillATwentiethOfIt, ()) {
  const NormalizedRect shares{arbitrary::share(), arbitrary::share(), arbitrary::share(), arbitrary::share()};
  const Rect area = arbitrary::area();
  const Rect rect = shares.rect(area);
  RC_ASSERT(rect == rect.rounded());
  RC_ASSERT(rect.x >= area.x);
  RC_ASSERT(rect.y >= area.y);
  // The origin and the size are rounded apart.
  RC_ASSERT(rect.maxX() <= area.maxX() + 1);
  RC_ASSERT(rect.maxY() <= area.maxY() + 1);
  RC_ASSERT(rect.width >= 0.05 * area.width - 0.5 - 1e-9);
  RC_ASSERT(rect.height >= 0.05 * area.height - 0.5 - 1e-9);
}

RC_GTEST_PROP(NormalizedRectProperties, WholePointsInsideTheAreaComeBackUnchanged, ()) {
  const Rect area = arbitrary::area();
  const Rect rect = arbitrary::inside(area);
  RC_ASSERT(NormalizedRect::of(rect, area).rect(area) == rect);
}

}  // namespace
}  // namespace tilwin
