#include "core/snap/actions/SnapAction.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <set>
#include <string>

#include "tests/core/Arbitrary.h"

namespace tilwin {
namespace {

constexpr Rect area{0, 25, 1440, 875};

Rect frame(SnapAction action, const Rect& current, double outer = 0, double gap = 0) {
  const auto result = SnapActions::frame(action, current, area, outer, gap);
  EXPECT_TRUE(result.has_value());
  return result.value_or(Rect{});
}

TEST(SnapAction, ThereAreThirtySix) {
  ASSERT_EQ(SnapActions::all().size(), 36);
  EXPECT_EQ(SnapActions::all().front(), SnapAction::leftHalf);
  EXPECT_EQ(SnapActions::all().back(), SnapAction::previousDisplay);
}

TEST(SnapAction, RawValuesAndTitlesAreAllDifferent) {
  std::set<std::string_view> rawValues;
  std::set<std::string_view> titles;
  for (const SnapAction action : SnapActions::all()) {
    rawValues.insert(SnapActions::rawValue(action));
    titles.insert(SnapActions::title(action));
  }
  EXPECT_EQ(rawValues.size(), 36);
  EXPECT_EQ(titles.size(), 36);
}

TEST(SnapAction, RawValuesAreTheNamesOfTheCases) {
  EXPECT_EQ(SnapActions::rawValue(SnapAction::leftTwoThirds), "leftTwoThirds");
  EXPECT_EQ(SnapActions::rawValue(SnapAction::bottomCenterSixth), "bottomCenterSixth");
  EXPECT_EQ(SnapActions::rawValue(SnapAction::previousDisplay), "previousDisplay");
}

TEST(SnapAction, EveryRawValueLeadsBackToItsAction) {
  for (const SnapAction action : SnapActions::all()) {
    EXPECT_EQ(SnapActions::fromRawValue(SnapActions::rawValue(action)), action);
  }
}

TEST(SnapAction, AnUnknownRawValueIsNoAction) {
  EXPECT_EQ(SnapActions::fromRawValue("leftHalves"), std::nullopt);
  EXPECT_EQ(SnapActions::fromRawValue("LeftHalf"), std::nullopt);
  EXPECT_EQ(SnapActions::fromRawValue(""), std::nullopt);
}

TEST(SnapAction, TitlesAreWrittenForPeople) {
  EXPECT_EQ(SnapActions::title(SnapAction::topLeft), "Top left quarter");
  EXPECT_EQ(SnapActions::title(SnapAction::centerLarge), "Center, large");
  EXPECT_EQ(SnapActions::title(SnapAction::maximizeHeight), "Full height");
  EXPECT_EQ(SnapActions::title(SnapAction::restore), "Restore previous size");
}

TEST(SnapAction, TheFirstTwentySixAreRegionsOfAGridAndTheRestAreNot) {
  for (const SnapAction action : SnapActions::all()) {
    const bool isGrid = action <= SnapAction::maximize;
    EXPECT_EQ(SnapActions::region(action).has_value(), isGrid) << SnapActions::rawValue(action);
  }
}

TEST(SnapAction, RegionsAreTheCellsTheirNamesSay) {
  EXPECT_EQ(SnapActions::region(SnapAction::bottomHalf), GridRegion(1, 2, 0, 1, 1, 1));
  EXPECT_EQ(SnapActions::region(SnapAction::topRight), GridRegion(2, 2, 1, 0, 1, 1));
  EXPECT_EQ(SnapActions::region(SnapAction::rightTwoThirds), GridRegion(3, 1, 1, 0, 2, 1));
  EXPECT_EQ(SnapActions::region(SnapAction::bottomRightSixth), GridRegion(3, 2, 2, 1, 1, 1));
  EXPECT_EQ(SnapActions::region(SnapAction::thirdFourth), GridRegion(4, 1, 2, 0, 1, 1));
  EXPECT_EQ(SnapActions::region(SnapAction::rightThreeFourths), GridRegion(4, 1, 1, 0, 3, 1));
  EXPECT_EQ(SnapActions::region(SnapAction::maximize), GridRegion(1, 1, 0, 0, 1, 1));
}

/// The parts of an area of 1200 by 600 points that the actions on a grid fill.
const std::map<SnapAction, Rect> parts{
    {SnapAction::leftHalf, {0, 0, 600, 600}},
    {SnapAction::rightHalf, {600, 0, 600, 600}},
    {SnapAction::topHalf, {0, 0, 1200, 300}},
    {SnapAction::bottomHalf, {0, 300, 1200, 300}},
    {SnapAction::topLeft, {0, 0, 600, 300}},
    {SnapAction::topRight, {600, 0, 600, 300}},
    {SnapAction::bottomLeft, {0, 300, 600, 300}},
    {SnapAction::bottomRight, {600, 300, 600, 300}},
    {SnapAction::leftThird, {0, 0, 400, 600}},
    {SnapAction::centerThird, {400, 0, 400, 600}},
    {SnapAction::rightThird, {800, 0, 400, 600}},
    {SnapAction::leftTwoThirds, {0, 0, 800, 600}},
    {SnapAction::rightTwoThirds, {400, 0, 800, 600}},
    {SnapAction::topLeftSixth, {0, 0, 400, 300}},
    {SnapAction::topCenterSixth, {400, 0, 400, 300}},
    {SnapAction::topRightSixth, {800, 0, 400, 300}},
    {SnapAction::bottomLeftSixth, {0, 300, 400, 300}},
    {SnapAction::bottomCenterSixth, {400, 300, 400, 300}},
    {SnapAction::bottomRightSixth, {800, 300, 400, 300}},
    {SnapAction::firstFourth, {0, 0, 300, 600}},
    {SnapAction::secondFourth, {300, 0, 300, 600}},
    {SnapAction::thirdFourth, {600, 0, 300, 600}},
    {SnapAction::lastFourth, {900, 0, 300, 600}},
    {SnapAction::leftThreeFourths, {0, 0, 900, 600}},
    {SnapAction::rightThreeFourths, {300, 0, 900, 600}},
    {SnapAction::maximize, {0, 0, 1200, 600}},
};

TEST(SnapAction, EachOnAGridFillsThePartOfTheAreaThatItsNameSays) {
  for (const SnapAction action : SnapActions::all()) {
    if (!SnapActions::region(action)) continue;
    EXPECT_EQ(SnapActions::frame(action, {}, {0, 0, 1200, 600}, 0, 0), parts.at(action))
        << SnapActions::rawValue(action);
  }
}

TEST(SnapAction, AGridActionFillsItsRegionWhateverTheWindowsFrame) {
  EXPECT_EQ(frame(SnapAction::leftHalf, {5, 6, 7, 8}, 8, 8), (Rect{8, 33, 708, 859}));
  EXPECT_EQ(frame(SnapAction::rightHalf, {500, 600, 70, 80}, 8, 8), (Rect{724, 33, 708, 859}));
}

TEST(SnapAction, MaximizeKeepsTheMarginOnAllFourSides) {
  EXPECT_EQ(frame(SnapAction::maximize, {}, 10, 99), (Rect{10, 35, 1420, 855}));
}

TEST(SnapAction, AlmostMaximizeTakesNineTenthsInTheMiddleWithoutMargins) {
  EXPECT_EQ(frame(SnapAction::almostMaximize, {}, 10, 10), (Rect{72, 69, 1296, 788}));
}

TEST(SnapAction, CenterKeepsTheSize) {
  EXPECT_EQ(frame(SnapAction::center, {0, 0, 640, 475}, 10, 10), (Rect{400, 225, 640, 475}));
}

TEST(SnapAction, CenterShrinksAWindowLargerThanTheArea) {
  EXPECT_EQ(frame(SnapAction::center, {0, 0, 2000, 475}), (Rect{0, 225, 1440, 475}));
}

TEST(SnapAction, CenterLargeTakesItsSharesInTheMiddle) {
  EXPECT_EQ(frame(SnapAction::centerLarge, {}, 10, 10), (Rect{252, 113, 936, 700}));
}

TEST(SnapAction, MaximizeHeightKeepsTheColumnAndTheMargin) {
  EXPECT_EQ(frame(SnapAction::maximizeHeight, {300.4, 200, 500, 100}, 10), (Rect{300, 35, 500, 855}));
}

TEST(SnapAction, MaximizeWidthKeepsTheRowAndTheMargin) {
  EXPECT_EQ(frame(SnapAction::maximizeWidth, {300, 200, 500, 100.5}, 10), (Rect{10, 200, 1420, 101}));
}

TEST(SnapAction, FullExtentsInAnAreaNarrowerThanItsMarginsKeepAPoint) {
  EXPECT_EQ(frame(SnapAction::maximizeWidth, {0, 50, 300, 300}, 800).width, 1);
  EXPECT_EQ(frame(SnapAction::maximizeHeight, {0, 50, 300, 300}, 800).height, 1);
}

TEST(SnapAction, LargerGrowsByAStepOnEachSide) {
  EXPECT_EQ(frame(SnapAction::larger, {400, 300, 600, 400}, 50, 50), (Rect{368, 268, 664, 464}));
}

TEST(SnapAction, LargerIsPushedBackInsideTheArea) {
  EXPECT_EQ(frame(SnapAction::larger, {0, 30, 600, 400}), (Rect{0, 25, 664, 464}));
  EXPECT_EQ(frame(SnapAction::larger, {840, 500, 600, 400}), (Rect{776, 436, 664, 464}));
}

TEST(SnapAction, LargerOfAWindowAsLargeAsTheAreaMovesItToTheAreasOrigin) {
  EXPECT_EQ(frame(SnapAction::larger, {200, 300, 1440, 875}), area);
  EXPECT_EQ(frame(SnapAction::larger, {-200, -300, 3000, 3000}), area);
}

TEST(SnapAction, SmallerShrinksAboutTheCentre) {
  EXPECT_EQ(frame(SnapAction::smaller, {100, 100, 600, 400}, 50, 50), (Rect{132, 132, 536, 336}));
}

TEST(SnapAction, SmallerStopsAtTheMinimumAndLeavesWhatIsBelowItAlone) {
  EXPECT_EQ(frame(SnapAction::smaller, {100, 100, 300, 200}), (Rect{130, 100, 240, 200}));
  EXPECT_EQ(frame(SnapAction::smaller, {100, 100, 240, 240}), (Rect{100, 100, 240, 240}));
}

TEST(SnapAction, SmallerIsNotPushedIntoTheArea) {
  EXPECT_EQ(frame(SnapAction::smaller, {-2000, 100, 600, 400}), (Rect{-1968, 132, 536, 336}));
}

TEST(SnapAction, RestoreAndTheDisplayMovesHaveNoFrameOfTheirOwn) {
  for (const SnapAction action :
       {SnapAction::restore, SnapAction::nextDisplay, SnapAction::previousDisplay}) {
    EXPECT_EQ(SnapActions::frame(action, {0, 0, 500, 500}, area, 0, 0), std::nullopt);
  }
}

RC_GTEST_PROP(SnapActionProperties, EveryFrameIsInWholePoints, ()) {
  const Rect in = arbitrary::area();
  const auto result = SnapActions::frame(arbitrary::action(), arbitrary::nearby(in), in,
                                         arbitrary::whole(0, 640) / 10.0, arbitrary::whole(0, 640) / 10.0);
  if (result) RC_ASSERT(*result == result->rounded());
}

RC_GTEST_PROP(SnapActionProperties, LargerAlwaysEndsInsideTheArea, ()) {
  const Rect in = arbitrary::area();
  const auto result = SnapActions::frame(SnapAction::larger, arbitrary::nearby(in), in, 0, 0);
  RC_ASSERT(result.has_value());
  RC_ASSERT(result->moved(in) == *result);
}

RC_GTEST_PROP(SnapActionProperties, SmallerNeverGrowsAWindow, ()) {
  const Rect in = arbitrary::area();
  const Rect current = arbitrary::nearby(in);
  const auto result = SnapActions::frame(SnapAction::smaller, current, in, 0, 0);
  RC_ASSERT(result.has_value());
  RC_ASSERT(result->width <= current.width);
  RC_ASSERT(result->height <= current.height);
}

}  // namespace
}  // namespace tilwin
