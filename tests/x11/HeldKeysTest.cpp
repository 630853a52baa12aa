#include "platform/x11/input/HeldKeys.h"

#include <gtest/gtest.h>

namespace tilwin::x11 {

namespace {

constexpr xcb_keycode_t left = 113;
constexpr xcb_keycode_t right = 114;
constexpr xcb_timestamp_t silence = HeldKeys::longestSilence;

}  // namespace

TEST(HeldKeys, AKeyThatIsHeldIsPressedOnce) {
  HeldKeys keys;
  EXPECT_TRUE(keys.press(left, 1000));
  EXPECT_FALSE(keys.press(left, 1660));
  EXPECT_FALSE(keys.press(left, 1700));
  keys.release(left);
  EXPECT_TRUE(keys.press(left, 1800));
}

TEST(HeldKeys, APressAfterALongSilenceCountsThoughItsReleaseWasLost) {
  HeldKeys keys;
  EXPECT_TRUE(keys.press(left, 1000));
  EXPECT_FALSE(keys.press(left, 1000 + silence - 1));
  EXPECT_TRUE(keys.press(left, 1000 + 2 * silence - 1));
}

TEST(HeldKeys, TheServersClockMayStartAgainMeanwhile) {
  HeldKeys keys;
  constexpr auto last = static_cast<xcb_timestamp_t>(-100);
  EXPECT_TRUE(keys.press(left, last));
  EXPECT_FALSE(keys.press(left, last + 200));
}

TEST(HeldKeys, OnceTheFirstKeyIsLetGoTheReleasesOfTheOthersAreNotWaitedFor) {
  HeldKeys keys;
  EXPECT_TRUE(keys.press(left, 1000));
  EXPECT_TRUE(keys.press(right, 1100));
  keys.release(left);
  EXPECT_TRUE(keys.press(right, 1200));
}

TEST(HeldKeys, AKeyLetGoWhileTheFirstIsHeldMayBePressedAgain) {
  HeldKeys keys;
  EXPECT_TRUE(keys.press(left, 1000));
  EXPECT_TRUE(keys.press(right, 1100));
  keys.release(right);
  EXPECT_TRUE(keys.press(right, 1200));
  EXPECT_FALSE(keys.press(left, 1300));
}

}  // namespace tilwin::x11
