#include "platform/x11/windows/SizeLimits.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tilwin::x11 {

namespace {

constexpr std::uint32_t leastGiven = 1U << 4U;
constexpr std::uint32_t mostGiven = 1U << 5U;
constexpr std::uint32_t stepGiven = 1U << 6U;
constexpr std::uint32_t proportionsGiven = 1U << 7U;
constexpr std::uint32_t baseGiven = 1U << 8U;
constexpr std::uint32_t gravityGiven = 1U << 9U;

/// WM_NORMAL_HINTS of which the flags say what counts.
std::vector<std::uint32_t> hints(std::uint32_t flags) {
  return {flags, 0, 0, 0, 0, 200, 100, 800, 600, 10, 20, 4, 3, 4, 3, 30, 40, XCB_GRAVITY_STATIC};
}

struct GravityExample {
  const char* name;
  std::uint32_t gravity;
  Point position;
};

class Gravity : public testing::TestWithParam<GravityExample> {};

}  // namespace

TEST(SizeLimits, AreThoseTheHintsGive) {
  const auto limits = SizeLimits::fromHints(hints(leastGiven | mostGiven | stepGiven | gravityGiven));
  EXPECT_EQ(limits, (SizeLimits{.least = {200, 100},
                                .most = {800, 600},
                                .step = {10, 20},
                                .keepsProportions = false,
                                .gravity = XCB_GRAVITY_STATIC}));
}

TEST(SizeLimits, TheBaseSizeIsTheLeastOneWithoutAMinimum) {
  EXPECT_EQ(SizeLimits::fromHints(hints(baseGiven)), (SizeLimits{.least = {30, 40}}));
  EXPECT_EQ(SizeLimits::fromHints(hints(baseGiven | leastGiven)), (SizeLimits{.least = {200, 100}}));
}

TEST(SizeLimits, OfWhatTheHintsLeaveOutThereAreNone) {
  EXPECT_EQ(SizeLimits::fromHints({}), SizeLimits());
  EXPECT_EQ(SizeLimits::fromHints(hints(0)), SizeLimits());
  auto shortened = hints(leastGiven | mostGiven | gravityGiven);
  shortened.resize(7);
  EXPECT_EQ(SizeLimits::fromHints(shortened), (SizeLimits{.least = {200, 100}}));
  shortened.resize(6);
  EXPECT_EQ(SizeLimits::fromHints(shortened), SizeLimits());
}

TEST(SizeLimits, ThatNoWindowCanHaveAreNoLimits) {
  auto numbers = hints(leastGiven | mostGiven | stepGiven);
  for (const std::size_t at : {5U, 7U, 9U}) numbers[at] = 0;
  for (const std::size_t at : {6U, 8U, 10U}) numbers[at] = 0xffffffff;
  EXPECT_EQ(SizeLimits::fromHints(numbers), SizeLimits());
}

TEST(SizeLimits, MakeASizeAsLargeAndAsSmallAsTheyAllow) {
  const SizeLimits limits{.least = {200, 100}, .most = {800, 600}};
  EXPECT_EQ(limits.clamped({960, 50}), (Size{800, 100}));
  EXPECT_EQ(limits.clamped({300, 400}), (Size{300, 400}));
  EXPECT_EQ((SizeLimits{.least = {200, 100}, .most = {100, 50}}.clamped({960, 50})), (Size{200, 100}));
}

TEST(SizeLimits, AWindowMayKeepASizeThatTheyLeaveNoWayFrom) {
  const SizeLimits limits{.least = {200, 100}, .most = {800, 600}, .step = {10, 20}};
  EXPECT_TRUE(limits.mayKeep({200, 300}, {150, 300}));
  EXPECT_TRUE(limits.mayKeep({800, 600}, {1000, 1000}));
  EXPECT_TRUE(limits.mayKeep({400, 300}, {409, 319}));
  EXPECT_FALSE(limits.mayKeep({400, 300}, {410, 300}));
  EXPECT_FALSE(limits.mayKeep({400, 300}, {150, 300}));
  EXPECT_FALSE(SizeLimits().mayKeep({400, 300}, {401, 300}));
}

TEST(SizeLimits, AWindowThatKeepsItsProportionsMayKeepAnySize) {
  const auto limits = SizeLimits::fromHints(hints(proportionsGiven));
  EXPECT_TRUE(limits.mayKeep({400, 300}, {960, 1080}));
}

TEST_P(Gravity, NamesThePointThatIsHeld) {
  // A frame of 110×130 points around a client area of 100×100, with a title bar of 25.
  constexpr Rect frame{300, 200, 110, 130};
  constexpr Rect client{305, 225, 100, 100};
  EXPECT_EQ(positionByGravity(GetParam().gravity, frame, client), GetParam().position);
}

INSTANTIATE_TEST_SUITE_P(SizeLimits, Gravity,
                         testing::Values(GravityExample{"NorthWest", XCB_GRAVITY_NORTH_WEST, {300, 200}},
                                         GravityExample{"NorthEast", XCB_GRAVITY_NORTH_EAST, {310, 200}},
                                         GravityExample{"Center", XCB_GRAVITY_CENTER, {305, 215}},
                                         GravityExample{"SouthEast", XCB_GRAVITY_SOUTH_EAST, {310, 230}},
                                         GravityExample{"Static", XCB_GRAVITY_STATIC, {305, 225}},
                                         GravityExample{"Forget", XCB_GRAVITY_BIT_FORGET, {300, 200}},
                                         GravityExample{"None", 4711, {300, 200}}),
                         [](const auto& entry) { return std::string(entry.param.name); });

}  // namespace tilwin::x11
