#include "platform/x11/overlay/RoundedFrame.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <map>
#include <numbers>
#include <utility>
#include <vector>

namespace tilwin::x11 {

namespace {

using Pixels = std::map<std::pair<int, int>, int>;

/// How often each pixel is in one of the rectangles.
Pixels pixelsOf(const std::vector<PixelRect>& rects) {
  Pixels result;
  for (const auto& rect : rects) {
    for (int y = rect.y; y < rect.y + rect.height; ++y) {
      for (int x = rect.x; x < rect.x + rect.width; ++x) ++result[{x, y}];
    }
  }
  return result;
}

}  // namespace

TEST(RoundedFrame, KeepsItsStraightBordersBetweenTheCorners) {
  const RoundedFrame frame(100, 60, 10, 2);
  EXPECT_EQ(frame.cornerSide(), 10);
  EXPECT_EQ(frame.sides(),
            (std::array<PixelRect, 4>{{{10, 0, 80, 2}, {10, 58, 80, 2}, {0, 10, 2, 40}, {98, 10, 2, 40}}}));
}

TEST(RoundedFrame, CoversAQuarterOfADiscInItsCorner) {
  const RoundedFrame frame(100, 60, 10, 2);
  double border = 0;
  double inside = 0;
  for (int y = 0; y < 10; ++y) {
    for (int x = 0; x < 10; ++x) {
      border += frame.cornerCover(x, y).border;
      inside += frame.cornerCover(x, y).inside;
    }
  }
  EXPECT_NEAR(inside, std::numbers::pi * 8 * 8 / 4, 0.1);
  EXPECT_NEAR(border, std::numbers::pi * (10 * 10 - 8 * 8) / 4, 0.1);
}

TEST(RoundedFrame, CoversNothingAtTheVeryCornerAndAllFurtherIn) {
  const RoundedFrame frame(100, 60, 10, 2);
  EXPECT_EQ(frame.cornerCover(0, 0), RoundedFrame::Cover{});
  EXPECT_EQ(frame.cornerCover(9, 9), (RoundedFrame::Cover{.border = 0, .inside = 1}));
}

TEST(RoundedFrame, MeetsItsStraightBordersWithoutAStep) {
  const RoundedFrame frame(100, 60, 10, 2);
  EXPECT_NEAR(frame.cornerCover(9, 0).border, 1, 0.02);
  EXPECT_NEAR(frame.cornerCover(9, 1).border, 1, 0.02);
  EXPECT_NEAR(frame.cornerCover(9, 2).inside, 1, 0.02);
}

RC_GTEST_PROP(RoundedFrame, HasARingThatOverlapsNowhereAndLooksTheSameFromAllSides, ()) {
  const int width = *rc::gen::inRange(1, 70);
  const int height = *rc::gen::inRange(1, 70);
  const auto pixels = pixelsOf(RoundedFrame(width, height, 10, 2).ring());
  for (const auto& [at, times] : pixels) {
    const auto [x, y] = at;
    RC_ASSERT(times == 1);
    RC_ASSERT(x >= 0 && x < width && y >= 0 && y < height);
    RC_ASSERT(pixels.contains({width - 1 - x, y}));
    RC_ASSERT(pixels.contains({x, height - 1 - y}));
  }
}

TEST(RoundedFrame, HasARingOfThePixelsThatTheBorderMostlyCovers) {
  const RoundedFrame frame(100, 60, 10, 2);
  const auto pixels = pixelsOf(frame.ring());
  for (int y = 0; y < 10; ++y) {
    for (int x = 0; x < 10; ++x) {
      const double border = frame.cornerCover(x, y).border;
      if (border > 0.6 || border < 0.4) {
        EXPECT_EQ(pixels.contains({x, y}), border > 0.6) << x << "," << y;
      }
    }
  }
}

TEST(RoundedFrame, LeavesItsInsideOutOfTheRing) {
  const auto pixels = pixelsOf(RoundedFrame(100, 60, 10, 2).ring());
  for (int y = 10; y < 50; ++y) {
    for (int x = 2; x < 98; ++x) EXPECT_FALSE(pixels.contains({x, y})) << x << "," << y;
  }
  EXPECT_EQ(pixels.count({50, 2}), 0U);
  EXPECT_EQ(pixels.count({50, 57}), 0U);
}

TEST(RoundedFrame, ShrinksItsCornersInAFrameTooSmallForThem) {
  const RoundedFrame frame(8, 40, 10, 2);
  EXPECT_EQ(frame.cornerSide(), 4);
  EXPECT_EQ(frame.sides()[0].width, 0);
  EXPECT_EQ(frame.sides()[2], (PixelRect{0, 4, 2, 32}));
}

}  // namespace tilwin::x11
