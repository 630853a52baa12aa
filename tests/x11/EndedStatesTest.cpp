#include "platform/x11/windows/EndedStates.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/x11/windows/NormalShapes.h"

namespace tilwin::x11 {

namespace {

constexpr xcb_window_t page = 11;
constexpr Rect whole{0, 0, 1920, 1080};
constexpr EndedState maximized{.states = {.maximizedHorz = true, .maximizedVert = true}, .frame = whole};

}  // namespace

TEST(EndedStates, ComeBackWithTheFrameThatTheWindowHadInThemOnce) {
  EndedStates ended;
  ended.ended(page, maximized);
  const auto taken = ended.take(page, whole);
  ASSERT_TRUE(taken);
  EXPECT_EQ(taken->states, maximized.states);
  EXPECT_EQ(taken->normal, std::nullopt);
  EXPECT_FALSE(ended.take(page, whole));
}

TEST(EndedStates, DoNotComeBackWithAnotherFrameAndAreForgottenThen) {
  EndedStates ended;
  ended.ended(page, maximized);
  EXPECT_FALSE(ended.take(page, {10, 10, 500, 400}));
  EXPECT_FALSE(ended.take(page, whole));
}

TEST(EndedStates, OfSeveralTheFirstCountsWithItsNormalFrame) {
  EndedStates ended;
  ended.ended(page, maximized);
  ended.wentTo(page, {300, 200, 800, 600});
  ended.ended(page, {.states = {.fullScreen = true}, .frame = {1, 2, 3, 4}});
  ended.wentTo(page, {0, 0, 960, 1080});
  const auto taken = ended.take(page, whole);
  ASSERT_TRUE(taken);
  EXPECT_EQ(taken->states, maximized.states);
  EXPECT_EQ(taken->normal, (Rect{300, 200, 800, 600}));
}

TEST(EndedStates, OfClosedWindowsAreForgotten) {
  EndedStates ended;
  ended.ended(page, maximized);
  ended.ended(page + 1, maximized);
  ended.keepOnly(std::array{page});
  EXPECT_FALSE(ended.take(page + 1, whole));
  EXPECT_TRUE(ended.take(page, whole));
}

TEST(NormalShapes, AMaximisedWindowWillLookAsItDidBefore) {
  NormalShapes shapes;
  const FrameShape normal{.decoration = {.left = 1, .right = 1, .top = 20, .bottom = 5}, .shadow = {}};
  const FrameShape bare{.decoration = {.left = 0, .right = 0, .top = 19, .bottom = 0}, .shadow = {}};
  EXPECT_EQ(shapes.of(page, bare), bare) << "it was never seen before";
  WindowSnapshot window;
  window.window = page;
  window.shape = normal;
  shapes.note(window);
  window.states = maximized.states;
  window.shape = bare;
  shapes.note(window);
  EXPECT_EQ(shapes.of(page, bare), normal);
  shapes.forget(page);
  EXPECT_EQ(shapes.of(page, bare), bare);
}

TEST(EndedState, InOneDirectionIsATileIfTheWindowBeneathStandsElsewhereInTheOther) {
  EndedState tall{.states = {.maximizedVert = true}, .frame = {0, 0, 960, 1080}};
  EXPECT_TRUE(tall.isTile({})) << "it left the tile only when it was moved";
  tall.normal = {300, 200, 800, 600};
  EXPECT_TRUE(tall.isTile({}));
  tall.normal = {0, 200, 960, 600};
  EXPECT_FALSE(tall.isTile({}));
  const FrameShape bordered{.decoration = {.left = 5, .right = 5, .top = 20, .bottom = 5}, .shadow = {}};
  EXPECT_TRUE(tall.isTile(bordered));
  tall.normal = {5, 220, 950, 600};
  EXPECT_FALSE(tall.isTile(bordered));
}

TEST(EndedState, InBothDirectionsOrFullScreenIsNoTile) {
  EXPECT_FALSE(maximized.isTile({}));
  EXPECT_FALSE(
      (EndedState{.states = {.maximizedVert = true, .fullScreen = true}, .frame = whole}.isTile({})));
}

}  // namespace tilwin::x11
