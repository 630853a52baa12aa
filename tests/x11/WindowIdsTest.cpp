#include "platform/x11/windows/WindowIds.h"

#include <gtest/gtest.h>

#include <array>

namespace tilwin::x11 {

TEST(WindowIds, AnOpenWindowKeepsItsId) {
  WindowIds ids;
  const auto id = ids.idOf(5, 100);
  EXPECT_EQ(ids.idOf(5, 100), id);
  EXPECT_EQ(ids.windowOf(id), 5U);
}

TEST(WindowIds, TwoWindowsHaveTwoIds) {
  WindowIds ids;
  EXPECT_NE(ids.idOf(5, 100), ids.idOf(6, 100));
}

TEST(WindowIds, AWindowNumberUsedAgainAfterClosingGetsANewId) {
  WindowIds ids;
  const auto first = ids.idOf(5, 100);
  const std::array<xcb_window_t, 1> open{6};
  ids.keepOnly(open);
  EXPECT_FALSE(ids.windowOf(first));
  EXPECT_NE(ids.idOf(5, 100), first);
}

TEST(WindowIds, AWindowKnownToBeClosedHasNoIdAndItsNumberGetsANewOne) {
  WindowIds ids;
  const auto first = ids.idOf(5, 100);
  ids.forget(5);
  ids.forget(6);
  EXPECT_FALSE(ids.windowOf(first));
  EXPECT_NE(ids.idOf(5, 100), first);
}

TEST(WindowIds, AWindowNumberUsedAgainByAnotherProcessGetsANewId) {
  WindowIds ids;
  const auto first = ids.idOf(5, 100);
  const auto second = ids.idOf(5, 200);
  EXPECT_NE(second, first);
  EXPECT_FALSE(ids.windowOf(first));
  EXPECT_EQ(ids.windowOf(second), 5U);
}

TEST(WindowIds, AnIdNeverIssuedNamesNoWindow) { EXPECT_FALSE(WindowIds().windowOf(1)); }

}  // namespace tilwin::x11
