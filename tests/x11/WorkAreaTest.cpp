#include "platform/x11/displays/WorkArea.h"

#include <gtest/gtest.h>

namespace tilwin::x11 {

namespace {

using Frames = std::vector<Rect>;

/// A shorter display at the left, a larger one at its right; the desktop spans both.
constexpr Rect shorter{0, 0, 1440, 900};
constexpr Rect taller{1440, 0, 1920, 1080};

DisplayInfo display(const Rect& frame) { return {.frame = frame, .visibleFrame = frame}; }

Rect visibleOfOne(WorkAreaRule& rule, const Rect& workArea, const DisplayInfo& only) {
  std::vector<DisplayInfo> displays{only};
  rule.apply(workArea, only.frame, {}, displays);
  return displays.front().visibleFrame;
}

Rect visibleOfOne(const Rect& workArea, const DisplayInfo& only = display({0, 0, 1920, 1080})) {
  WorkAreaRule rule;
  return visibleOfOne(rule, workArea, only);
}

Frames visibleOfBoth(const Rect& workArea, const Frames& shown) {
  std::vector<DisplayInfo> displays{display(shorter), display(taller)};
  WorkAreaRule().apply(workArea, {0, 0, 3360, 1080}, shown, displays);
  return {displays[0].visibleFrame, displays[1].visibleFrame};
}

DisplayInfo withPanel(const Rect& visible) { return {.frame = {0, 0, 1920, 1080}, .visibleFrame = visible}; }

}  // namespace

TEST(WorkArea, EachWorkspaceHasItsOwn) {
  const std::vector<std::uint32_t> numbers{0, 0, 1920, 1080, 10, 20, 1900, 1000};
  EXPECT_EQ(workAreaOf(numbers, 0), (Rect{0, 0, 1920, 1080}));
  EXPECT_EQ(workAreaOf(numbers, 1), (Rect{10, 20, 1900, 1000}));
}

TEST(WorkArea, AWorkspaceWithoutNumbersHasThoseOfTheFirst) {
  EXPECT_EQ(workAreaOf({0, 0, 1920, 1040}, 3), (Rect{0, 0, 1920, 1040}));
  EXPECT_EQ(workAreaOf({0, 0, 1920, 1040, 0, 0}, 1), (Rect{0, 0, 1920, 1040}));
  EXPECT_EQ(workAreaOf({0, 0, 1920, 1040}, 0xffffffff), (Rect{0, 0, 1920, 1040}));
}

TEST(WorkArea, MayBeginLeftOfTheOrigin) {
  EXPECT_EQ(workAreaOf({0xfffffff6, 0, 100, 50}, 0), (Rect{-10, 0, 100, 50}));
}

TEST(WorkArea, AShortOrEmptyOneCountsAsMissing) {
  EXPECT_EQ(workAreaOf({}, 0), std::nullopt);
  EXPECT_EQ(workAreaOf({0, 0, 1920}, 0), std::nullopt);
  EXPECT_EQ(workAreaOf({0, 0, 0, 1080}, 0), std::nullopt);
  EXPECT_EQ(workAreaOf({0, 0, 1920, 0xffffffff}, 0), std::nullopt);
}

TEST(WorkArea, OfASingleDisplayIsWhatIsFreeOnIt) {
  EXPECT_EQ(visibleOfOne({0, 0, 1920, 1040}), (Rect{0, 0, 1920, 1040}));
  EXPECT_EQ(visibleOfOne({10, 20, 1880, 1030}), (Rect{10, 20, 1880, 1030}));
}

TEST(WorkArea, WhatAStrutHasTakenMoreStaysTaken) {
  EXPECT_EQ(visibleOfOne({0, 40, 1920, 990}, withPanel({0, 60, 1920, 1020})), (Rect{0, 60, 1920, 970}));
}

TEST(WorkArea, OneThatLeavesNothingOfADisplayIsPassedOver) {
  EXPECT_EQ(visibleOfOne({1920, 0, 1440, 1080}), (Rect{0, 0, 1920, 1080}));
  EXPECT_EQ(visibleOfOne({0, 0, 1920, 400}, withPanel({0, 450, 1920, 630})), (Rect{0, 450, 1920, 630}));
}

TEST(WorkArea, ASideToldForAPanelSaysNothingOnceThePanelHasGone) {
  WorkAreaRule rule;
  const Rect told{0, 40, 1920, 1010};
  EXPECT_EQ(visibleOfOne(rule, told, withPanel({0, 40, 1920, 1040})), told);
  EXPECT_EQ(visibleOfOne(rule, told, withPanel({0, 0, 1920, 1080})), (Rect{0, 0, 1920, 1050}));
}

TEST(WorkArea, ASideToldAfreshCountsAgain) {
  WorkAreaRule rule;
  const auto bare = withPanel({0, 0, 1920, 1080});
  EXPECT_EQ(visibleOfOne(rule, {0, 40, 1920, 1040}, withPanel({0, 40, 1920, 1040})),
            (Rect{0, 40, 1920, 1040}));
  EXPECT_EQ(visibleOfOne(rule, {0, 0, 1920, 1080}, bare), (Rect{0, 0, 1920, 1080}));
  EXPECT_EQ(visibleOfOne(rule, {0, 40, 1920, 1040}, bare), (Rect{0, 40, 1920, 1040}));
}

TEST(WorkArea, OneToldForAnotherSizeOfTheScreenIsPassedOver) {
  WorkAreaRule rule;
  const Rect told{0, 0, 1440, 870};
  EXPECT_EQ(visibleOfOne(rule, told, display(shorter)), told);
  EXPECT_EQ(visibleOfOne(rule, told, display({0, 0, 1920, 1080})), (Rect{0, 0, 1920, 1080}));
  EXPECT_EQ(visibleOfOne(rule, {0, 0, 1920, 1050}, display({0, 0, 1920, 1080})), (Rect{0, 0, 1920, 1050}));
  EXPECT_EQ(visibleOfOne(rule, {0, 0, 1920, 1050}, display(shorter)), shorter);
}

TEST(WorkArea, IsNotTakenFromADisplayWithoutABar) {
  EXPECT_EQ(visibleOfBoth({0, 40, 3360, 1040}, {}), (Frames{shorter, taller}));
  EXPECT_EQ(visibleOfBoth({0, 0, 3360, 860}, {}), (Frames{shorter, taller}));
}

TEST(WorkArea, ABarOnTheSmallerDisplayTakesNothingOfTheLargerOne) {
  EXPECT_EQ(visibleOfBoth({0, 0, 3360, 860}, {{0, 860, 1440, 40}}), (Frames{{0, 0, 1440, 860}, taller}));
  EXPECT_EQ(visibleOfBoth({0, 30, 3360, 1050}, {{0, 0, 1440, 30}}), (Frames{{0, 30, 1440, 870}, taller}));
}

TEST(WorkArea, ABarOnTheLargerDisplayTakesNothingOfTheSmallerOne) {
  EXPECT_EQ(visibleOfBoth({0, 0, 3360, 1040}, {{1440, 1040, 1920, 40}}),
            (Frames{shorter, {1440, 0, 1920, 1040}}));
  EXPECT_EQ(visibleOfBoth({0, 30, 3360, 1050}, {{1440, 0, 1920, 30}}),
            (Frames{shorter, {1440, 30, 1920, 1050}}));
  EXPECT_EQ(visibleOfBoth({0, 0, 3300, 1080}, {{3300, 0, 60, 1080}}),
            (Frames{shorter, {1440, 0, 1860, 1080}}));
}

TEST(WorkArea, ABarAcrossBothDisplaysTakesRoomOnBoth) {
  EXPECT_EQ(visibleOfBoth({0, 30, 3360, 1050}, {{0, 0, 3360, 30}}),
            (Frames{{0, 30, 1440, 870}, {1440, 30, 1920, 1050}}));
}

TEST(WorkArea, ABarCountsByItsDepthWhereTheDesktopReachesFurtherThanItsDisplay) {
  EXPECT_EQ(visibleOfBoth({0, 0, 3360, 1060}, {{0, 880, 1440, 20}}), (Frames{{0, 0, 1440, 880}, taller}));
}

TEST(WorkArea, OfTheFirstDisplayAloneSaysNothingOfTheOther) {
  EXPECT_EQ(visibleOfBoth({0, 0, 1440, 860}, {{0, 860, 1440, 40}}), (Frames{{0, 0, 1440, 860}, taller}));
}

TEST(WorkArea, ThatEndsWithTheShorterDisplayTakesNothingOfTheOther) {
  EXPECT_EQ(visibleOfBoth({0, 0, 3360, 900}, {{0, 0, 1440, 26}}), (Frames{shorter, taller}));
}

TEST(WorkArea, ABarMayBeOffByItsBorder) {
  EXPECT_EQ(visibleOfBoth({0, 0, 3360, 859}, {{0, 861, 1440, 38}}), (Frames{{0, 0, 1440, 859}, taller}));
}

TEST(WorkArea, ABarMayLeaveSomeOfItsEdge) {
  EXPECT_EQ(visibleOfBoth({0, 0, 3360, 860}, {{250, 860, 940, 40}}), (Frames{{0, 0, 1440, 860}, taller}));
}

TEST(WorkArea, WhatOnlyLiesInTheRoomOfABarIsNone) {
  EXPECT_EQ(visibleOfBoth({0, 40, 3360, 1040}, {{200, 0, 900, 20}}), (Frames{shorter, taller}));
  EXPECT_EQ(visibleOfBoth({0, 40, 3360, 1040}, {{200, 10, 900, 30}}), (Frames{shorter, taller}));
  EXPECT_EQ(visibleOfBoth({0, 40, 3360, 1040}, {{200, 0, 90, 40}}), (Frames{shorter, taller}));
}

}  // namespace tilwin::x11
