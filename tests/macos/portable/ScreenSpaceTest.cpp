#include "platform/ports/ScreenSpace.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tilwin {

constexpr double height = 900;

TEST(ScreenSpace, ARectangleIsTurnedAboutTheHeightOfTheFirstScreen) {
  EXPECT_EQ(fromScreen({0, 70, 1440, 805}, height), (Rect{0, 25, 1440, 805}));
  EXPECT_EQ(toScreen({0, 25, 1440, 805}, height), (ScreenRect{0, 70, 1440, 805}));
}

TEST(ScreenSpace, AScreenAboveTheFirstLiesAtNegativeY) {
  EXPECT_EQ(fromScreen({-1080, 900, 1080, 1920}, height), (Rect{-1080, -1920, 1080, 1920}));
}

TEST(ScreenSpace, APointIsTurnedTheSameWayBothTimes) {
  EXPECT_EQ(fromScreen(Point{12, 900}, height), (Point{12, 0}));
  EXPECT_EQ(fromScreen(fromScreen(Point{12, 34}, height), height), (Point{12, 34}));
}

RC_GTEST_PROP(ScreenSpace, ARectangleComesBackAsItWas, ()) {
  const auto whole = [] { return static_cast<double>(*rc::gen::inRange(-5000, 5000)); };
  const Rect rect{whole(), whole(), whole(), whole()};
  RC_ASSERT(fromScreen(toScreen(rect, height), height) == rect);
}

}  // namespace tilwin
