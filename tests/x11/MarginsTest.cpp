#include "platform/x11/windows/Margins.h"

#include <gtest/gtest.h>

namespace tilwin::x11 {

namespace {

const FrameShape decorated{.decoration = {.left = 1, .right = 2, .top = 20, .bottom = 5}, .shadow = {}};
const FrameShape shadowed{.decoration = {}, .shadow = {.left = 26, .right = 30, .top = 23, .bottom = 29}};

}  // namespace

TEST(FrameShape, TheFrameOfADecoratedWindowTakesInItsDecoration) {
  EXPECT_EQ(decorated.frameOfClient({101, 120, 800, 600}), (Rect{100, 100, 803, 625}));
}

TEST(FrameShape, TheFrameOfAWindowThatDrawsAShadowLeavesTheShadowOut) {
  EXPECT_EQ(shadowed.frameOfClient({-26, -23, 856, 652}), (Rect{0, 0, 800, 600}));
}

TEST(FrameShape, ADecoratedWindowIsAskedForByItsOuterCornerAndItsClientSize) {
  EXPECT_EQ(decorated.requestForFrame({100, 100, 803, 625}), (Rect{100, 100, 800, 600}));
}

TEST(FrameShape, AWindowWithAShadowIsAskedToReachBeyondItsFrame) {
  EXPECT_EQ(shadowed.requestForFrame({0, 0, 800, 600}), (Rect{-26, -23, 856, 652}));
}

TEST(FrameShape, AFramesSizeFollowsFromThatOfTheClientArea) {
  EXPECT_EQ(decorated.frameSizeOf({800, 600}), (Size{803, 625}));
  EXPECT_EQ(shadowed.frameSizeOf({856, 652}), (Size{800, 600}));
}

TEST(FrameShape, AFrameSmallerThanItsDecorationAsksForOnePoint) {
  const Rect request = decorated.requestForFrame({0, 0, 2, 10});
  EXPECT_EQ(request.width, 1);
  EXPECT_EQ(request.height, 1);
}

TEST(Margins, AMissingOrShortPropertyMeansNone) {
  EXPECT_EQ(Margins::fromProperty({}), Margins());
  EXPECT_EQ(Margins::fromProperty({1, 2, 3}), Margins());
  EXPECT_EQ(Margins::fromProperty({1, 2, 3, 4}), (Margins{1, 2, 3, 4}));
}

}  // namespace tilwin::x11
