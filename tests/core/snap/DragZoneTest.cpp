#include "core/snap/DragZone.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <set>

namespace tilwin {
namespace {

using Zone = std::optional<SnapAction>;

constexpr DisplayInfo screen{.id = 1, .frame = {0, 0, 1440, 900}, .visibleFrame = {0, 25, 1440, 805}};
constexpr Zone none = std::nullopt;

Zone at(double x, double y, const DisplayInfo& display = screen) {
  return DragZone::action({x, y}, display, 6, 60);
}

TEST(DragZone, EachCornerAndEdgeHasItsAction) {
  EXPECT_EQ(at(0, 0), SnapAction::topLeft);
  EXPECT_EQ(at(1440, 0), SnapAction::topRight);
  EXPECT_EQ(at(0, 900), SnapAction::bottomLeft);
  EXPECT_EQ(at(1440, 900), SnapAction::bottomRight);
  EXPECT_EQ(at(720, 0), SnapAction::maximize);
  EXPECT_EQ(at(0, 450), SnapAction::leftHalf);
  EXPECT_EQ(at(1440, 450), SnapAction::rightHalf);
  EXPECT_EQ(at(720, 900), SnapAction::bottomHalf);
  EXPECT_EQ(at(720, 450), none);
}

TEST(DragZone, FiftyFromTheLeftAndThreeFromTheTopIsTheCorner) {
  EXPECT_EQ(at(50, 3), SnapAction::topLeft);
  EXPECT_EQ(at(70, 3), SnapAction::maximize);
  EXPECT_EQ(at(3, 400), SnapAction::leftHalf);
}

TEST(DragZone, ABandEndsAtItsDepthInclusive) {
  EXPECT_EQ(at(6, 450), SnapAction::leftHalf);
  EXPECT_EQ(at(6.5, 450), none);
  EXPECT_EQ(at(1434, 450), SnapAction::rightHalf);
  EXPECT_EQ(at(1433.5, 450), none);
  EXPECT_EQ(at(720, 6), SnapAction::maximize);
  EXPECT_EQ(at(720, 6.5), none);
  EXPECT_EQ(at(720, 894), SnapAction::bottomHalf);
  EXPECT_EQ(at(720, 893.5), none);
}

TEST(DragZone, ACornerReachesAlongBothOfItsEdgesInclusive) {
  EXPECT_EQ(at(60, 6), SnapAction::topLeft);
  EXPECT_EQ(at(60.5, 6), SnapAction::maximize);
  EXPECT_EQ(at(6, 60), SnapAction::topLeft);
  EXPECT_EQ(at(6, 60.5), SnapAction::leftHalf);
  EXPECT_EQ(at(1380, 6), SnapAction::topRight);
  EXPECT_EQ(at(1434, 60), SnapAction::topRight);
  EXPECT_EQ(at(6, 840), SnapAction::bottomLeft);
  EXPECT_EQ(at(60, 894), SnapAction::bottomLeft);
  EXPECT_EQ(at(1434, 840), SnapAction::bottomRight);
  EXPECT_EQ(at(1380, 894), SnapAction::bottomRight);
}

TEST(DragZone, ACornerIsNoSquare) {
  EXPECT_EQ(at(30, 30), none);
  EXPECT_EQ(at(7, 7), none);
}

TEST(DragZone, ThePointerMayBeOneOffAtTheLeftAndTopAndNotBeyondTheRightAndBottom) {
  EXPECT_EQ(at(-1, 450), SnapAction::leftHalf);
  EXPECT_EQ(at(-1.5, 450), none);
  EXPECT_EQ(at(720, -1), SnapAction::maximize);
  EXPECT_EQ(at(720, -1.5), none);
  EXPECT_EQ(at(1440, 450), SnapAction::rightHalf);
  EXPECT_EQ(at(1440.5, 450), none);
  EXPECT_EQ(at(720, 900), SnapAction::bottomHalf);
  EXPECT_EQ(at(720, 900.5), none);
}

TEST(DragZone, PanelsDoNotMoveTheBands) {
  EXPECT_EQ(at(720, 3), SnapAction::maximize);
  EXPECT_EQ(at(720, 27), none);
  EXPECT_EQ(at(720, 828), none);
}

TEST(DragZone, TheBandsAreThoseOfADisplayWhereverItIs) {
  constexpr DisplayInfo above{.id = 2, .frame = {1440, -1080, 1920, 1080}};
  EXPECT_EQ(at(1440, -540, above), SnapAction::leftHalf);
  EXPECT_EQ(at(3360, -540, above), SnapAction::rightHalf);
  EXPECT_EQ(at(2400, -1080, above), SnapAction::maximize);
  EXPECT_EQ(at(2400, 0, above), SnapAction::bottomHalf);
  EXPECT_EQ(at(1440, 450, above), none);
}

TEST(DragZone, OnADisplayNarrowerThanItsCornersTheFirstOneCounts) {
  constexpr DisplayInfo tiny{.id = 3, .frame = {0, 0, 100, 100}};
  EXPECT_EQ(at(50, 0, tiny), SnapAction::topLeft);
  EXPECT_EQ(at(100, 50, tiny), SnapAction::topRight);
  EXPECT_EQ(at(50, 100, tiny), SnapAction::bottomLeft);
}

RC_GTEST_PROP(DragZone, AWiderBandHoldsTheNarrowerOne, (double across, double down)) {
  const Point point{std::fmod(std::fabs(across), 1440), std::fmod(std::fabs(down), 900)};
  const auto narrow = DragZone::action(point, screen, 6, 60);
  const auto wide = DragZone::action(point, screen, 24, 60);
  RC_ASSERT(!narrow || wide);
}

TEST(DragZone, NoZoneGivesTheTopHalfAThirdAFourthOrASixth) {
  const std::set<SnapAction> possible{SnapAction::topLeft,     SnapAction::topRight,  SnapAction::bottomLeft,
                                      SnapAction::bottomRight, SnapAction::maximize,  SnapAction::leftHalf,
                                      SnapAction::rightHalf,   SnapAction::bottomHalf};
  std::set<SnapAction> seen;
  for (int x = 0; x <= 1440; ++x) {
    for (int y = 0; y <= 900; ++y) {
      if (const auto zone = at(x, y)) seen.insert(*zone);
    }
  }
  EXPECT_EQ(seen, possible);
}

}  // namespace
}  // namespace tilwin
