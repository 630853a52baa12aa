#include <cmath>

#include "tests/contract/World.h"

namespace tilwin::contract {

World::Window LargeWindowContract::openLarge() {
  const Rect least = place(0, 0, 0.6, 0.6);
  return openFocused({.title = "large",
                      .frame = place(0.1, 0.1, 0.65, 0.65),
                      .minimumWidth = least.width,
                      .minimumHeight = least.height});
}

testing::AssertionResult LargeWindowContract::comesToOuterEdges(World::Window window, const Rect& tile) {
  const Rect area = place(0, 0, 1, 1);
  const bool atRight = std::abs(tile.maxX() - area.maxX()) <= borderSlack;
  const bool atBottom = std::abs(tile.maxY() - area.maxY()) <= borderSlack;
  return world->settled([&] {
    const Rect seen = world->standing(window).value_or(Rect());
    const double right = atRight ? seen.maxX() - area.maxX() : seen.x - area.x;
    const double bottom = atBottom ? seen.maxY() - area.maxY() : seen.y - area.y;
    const Rect reported = focused().frame;
    if (std::abs(right) <= borderSlack && std::abs(bottom) <= borderSlack && reported == tile) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "asked for " << tile << " in " << area << ", it stands at " << seen
                                       << " and is reported at " << reported;
  });
}

TEST_P(LargeWindowContract, AWindowThatRefusesToShrinkStandsAtTheOuterEdgesOfItsTileAndIsReportedThere) {
  const auto window = openLarge();
  for (const Rect& tile : {place(0, 0, 0.4, 0.4), place(0.6, 0, 0.4, 0.4), place(0.6, 0.6, 0.4, 0.4),
                           place(0, 0.6, 0.4, 0.4), place(0.5, 0, 0.5, 0.5)}) {
    ASSERT_TRUE(provider->setFrame(focused().id, tile));
    EXPECT_TRUE(comesToOuterEdges(window, tile));
    const auto standing = world->standing(window).value_or(Rect());
    EXPECT_GE(standing.width, place(0, 0, 0.6, 0.6).width);
    EXPECT_GE(standing.height, place(0, 0, 0.6, 0.6).height);
  }
}

TEST_P(LargeWindowContract, AskedAgainForTheSameTileItStaysThereAndIsReportedThere) {
  const auto window = openLarge();
  const Rect tile = place(0.6, 0.6, 0.4, 0.4);
  ASSERT_TRUE(provider->setFrame(focused().id, tile));
  ASSERT_TRUE(comesToOuterEdges(window, tile));
  const auto standing = world->standing(window);
  ASSERT_TRUE(provider->setFrame(focused().id, tile));
  EXPECT_TRUE(comesToOuterEdges(window, tile));
  EXPECT_EQ(world->standing(window), standing);
}

TEST_P(LargeWindowContract, AskedForATileItFitsItTakesIt) {
  const auto window = openLarge();
  const Rect tight = place(0.6, 0.6, 0.4, 0.4);
  ASSERT_TRUE(provider->setFrame(focused().id, tight));
  ASSERT_TRUE(comesToOuterEdges(window, tight));
  const Rect wide = place(0.25, 0, 0.75, 1);
  moveFocusedTo(window, wide);
  EXPECT_EQ(focused().frame, wide);
}

TEST_P(LargeWindowContract, MovedByHandItIsReportedWhereItStands) {
  const auto window = openLarge();
  const Rect tile = place(0.6, 0.6, 0.4, 0.4);
  ASSERT_TRUE(provider->setFrame(focused().id, tile));
  ASSERT_TRUE(comesToOuterEdges(window, tile));
  const Rect byHand = place(0.05, 0.05, 0.7, 0.7);
  world->moveByHand(window, byHand);
  EXPECT_TRUE(comesNear(window, byHand));
  EXPECT_TRUE(world->settled([&] { return isNear(focused().frame, byHand); }));
}

TEST_P(LargeWindowContract, AWindowThatRefusesToShrinkInPlaceStaysAndIsReportedWhereItIs) {
  const auto window = openLarge();
  const Rect tight = place(0, 0.6, 0.4, 0.4);
  ASSERT_TRUE(provider->setFrame(focused().id, tight));
  ASSERT_TRUE(comesToOuterEdges(window, tight));
  const Rect standing = world->standing(window).value_or(Rect());
  const Rect smaller{standing.x + 32, standing.y + 32, standing.width - 64, standing.height - 64};
  ASSERT_TRUE(provider->setFrame(focused().id, smaller));
  EXPECT_TRUE(world->comesTo(standing, [&] { return focused().frame; }));
  EXPECT_EQ(world->standing(window), standing);
}

}  // namespace tilwin::contract
