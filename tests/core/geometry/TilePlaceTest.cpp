#include "core/geometry/TilePlace.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "core/snap/actions/GridRegion.h"
#include "tests/core/Arbitrary.h"

namespace tilwin {
namespace {

constexpr Rect area{0, 25, 1200, 800};
constexpr Rect somewhere{130, 140, 900, 500};

/// Where a window stands that takes this size instead of the tile's.
Rect standing(const Rect& tile, Size taken, const Rect& before = somewhere) {
  return TilePlace{tile, area, before}.frame(taken);
}

TEST(TilePlace, AWindowThatTakesTheTilesSizeOrLessStartsWhereTheTileDoes) {
  constexpr Rect tile{800, 425, 400, 400};
  EXPECT_EQ(standing(tile, {400, 400}), tile);
  EXPECT_EQ(standing(tile, {390, 120}), (Rect{800, 425, 390, 120}));
}

TEST(TilePlace, AWiderWindowStandsAtTheOuterSideOfItsTile) {
  EXPECT_EQ(standing({0, 25, 400, 800}, {900, 800}), (Rect{0, 25, 900, 800}));
  EXPECT_EQ(standing({800, 25, 400, 800}, {900, 800}), (Rect{300, 25, 900, 800}));
}

TEST(TilePlace, AHigherWindowStandsAtTheOuterSideOfItsTile) {
  EXPECT_EQ(standing({0, 25, 1200, 400}, {1200, 600}), (Rect{0, 25, 1200, 600}));
  EXPECT_EQ(standing({0, 425, 1200, 400}, {1200, 600}), (Rect{0, 225, 1200, 600}));
}

TEST(TilePlace, AWindowLargerInBothDirectionsStandsInTheOuterCorner) {
  EXPECT_EQ(standing({600, 425, 600, 400}, {700, 500}), (Rect{500, 325, 700, 500}));
  EXPECT_EQ(standing({600, 25, 600, 400}, {700, 500}), (Rect{500, 25, 700, 500}));
}

TEST(TilePlace, TheMarginAroundTilesIsKept) {
  EXPECT_EQ(standing({8, 33, 390, 784}, {900, 784}), (Rect{8, 33, 900, 784}));
  EXPECT_EQ(standing({802, 33, 390, 784}, {900, 784}), (Rect{292, 33, 900, 784}));
}

TEST(TilePlace, AWindowThatDoesNotFitBesideTheMarginTakesItUp) {
  EXPECT_EQ(standing({802, 33, 390, 784}, {1195, 784}), (Rect{0, 33, 1195, 784}));
}

TEST(TilePlace, AWindowInTheMiddleReachesAsFarToBothSides) {
  EXPECT_EQ(standing({400, 25, 400, 800}, {900, 800}), (Rect{150, 25, 900, 800}));
  EXPECT_EQ(standing({400, 25, 400, 800}, {501, 800}), (Rect{350, 25, 501, 800})) << "whole points";
}

TEST(TilePlace, AWindowBetweenTheMiddleAndTheEdgeReachesInwardAsFarAsItFits) {
  EXPECT_EQ(standing({300, 25, 300, 800}, {500, 800}), (Rect{300, 25, 500, 800}));
  EXPECT_EQ(standing({300, 25, 300, 800}, {1000, 800}), (Rect{200, 25, 1000, 800}));
}

TEST(TilePlace, AWindowLargerThanTheAreaStartsWhereTheAreaDoes) {
  EXPECT_EQ(standing({800, 425, 400, 400}, {1300, 900}), (Rect{0, 25, 1300, 900}));
}

TEST(TilePlace, ASizeThatTheAreaHasNoRoomForIsMadeSmallerInItsProportions) {
  const TilePlace place{{0, 500, 1000, 500}, {0, 40, 1000, 960}, {}};
  EXPECT_EQ(place.fitting({1000, 1200}), (Size{800, 960}));
  EXPECT_EQ(place.fitting({2000, 960}), (Size{1000, 480}));
  EXPECT_EQ(place.fitting({1000, 960}), (Size{1000, 960}));
}

TEST(TilePlace, AWindowThatRefusesToShrinkInPlaceStaysThere) {
  constexpr Rect before{100, 100, 300, 300};
  constexpr Rect smaller{132, 132, 236, 236};
  EXPECT_EQ(standing(smaller, {300, 300}, before), before);
  EXPECT_EQ(standing(smaller, {300, 236}, before), (Rect{100, 132, 300, 236}));
}

TEST(TilePlace, TheTileIsReportedForAWindowThatStandsAtItWithAnotherSize) {
  const TilePlace place{{800, 25, 400, 800}, area, somewhere};
  EXPECT_EQ(place.reported(place.frame({900, 800})), place.tile);
  EXPECT_EQ(place.reported({800, 25, 391, 794}), place.tile);
  const TilePlace again{{800, 25, 400, 800}, area, {300, 25, 900, 800}};
  EXPECT_EQ(again.reported(again.frame({900, 800})), again.tile) << "it stood there before";
}

TEST(TilePlace, AWindowThatRefusedToShrinkInPlaceIsReportedWhereItIs) {
  const TilePlace place{{132, 132, 236, 236}, area, {100, 100, 300, 300}};
  EXPECT_EQ(place.reported({100, 100, 300, 300}), (Rect{100, 100, 300, 300}));
  EXPECT_EQ(place.reported({100, 132, 300, 236}), place.tile) << "it became lower";
}

TEST(TilePlace, TheAreaIsTheFreePartOfTheDisplayThatCoversMostOfTheTile) {
  const std::vector<DisplayInfo> displays{{1, {0, 0, 1200, 900}, area, true},
                                          {2, {1200, 0, 1000, 900}, {1200, 0, 1000, 850}, false}};
  EXPECT_EQ(TilePlace::of({1900, 0, 300, 850}, somewhere, displays).area, (Rect{1200, 0, 1000, 850}));
  EXPECT_EQ(TilePlace::of({-500, 0, 300, 850}, somewhere, displays).area, area) << "the primary one";
  EXPECT_EQ(TilePlace::of({1900, 0, 300, 850}, somewhere, {}).area, (Rect{1900, 0, 300, 850}));
}

/// A tile of any grid, and a size that a window may take in it.
struct Taken {
  Rect tile;
  Size size;
};

Taken arbitraryTaken() {
  using arbitrary::whole;
  const int columns = whole(1, 6);
  const int rows = whole(1, 6);
  const GridRegion region(columns, rows, whole(0, columns - 1), whole(0, rows - 1), whole(1, columns),
                          whole(1, rows));
  const double margin = whole(0, 32);
  return {region.frame(area, margin, margin), {1.0 * whole(1, 1200), 1.0 * whole(1, 800)}};
}

RC_GTEST_PROP(TilePlaceProperties, NoWindowThatFitsTheAreaReachesBeyondIt, ()) {
  const Taken taken = arbitraryTaken();
  const Rect frame = standing(taken.tile, taken.size);
  RC_ASSERT(frame.x >= area.x && frame.maxX() <= area.maxX());
  RC_ASSERT(frame.y >= area.y && frame.maxY() <= area.maxY());
}

RC_GTEST_PROP(TilePlaceProperties, AWindowLargerThanItsTileCoversTheTile, ()) {
  const Taken taken = arbitraryTaken();
  const Size size{std::max(taken.size.width, taken.tile.width),
                  std::max(taken.size.height, taken.tile.height)};
  const Rect frame = standing(taken.tile, size);
  RC_ASSERT(frame.x <= taken.tile.x && frame.maxX() >= taken.tile.maxX());
  RC_ASSERT(frame.y <= taken.tile.y && frame.maxY() >= taken.tile.maxY());
}

}  // namespace
}  // namespace tilwin
