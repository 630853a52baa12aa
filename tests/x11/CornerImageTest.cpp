#include "platform/x11/overlay/CornerImage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tilwin::x11 {

namespace {

constexpr AccentColour cornerAccent{0x35, 0x84, 0xe4};
const RoundedFrame corneredFrame(100, 60, 10, 2);

std::vector<std::uint32_t> cornerPixels(Corner corner) {
  const auto bytes = cornerImage(corneredFrame, cornerAccent, corner, XCB_IMAGE_ORDER_LSB_FIRST);
  std::vector<std::uint32_t> result;
  for (std::size_t index = 0; index < bytes.size(); ++index) {
    if (index % 4 == 0) result.push_back(0);
    result.back() |= static_cast<std::uint32_t>(bytes[index]) << (8 * (index % 4));
  }
  return result;
}

}  // namespace

TEST(AccentColour, IsMultipliedByItsOpacity) {
  EXPECT_EQ(premultiplied({200, 100, 0}, 0.5), 0x80643200U);
  EXPECT_EQ(premultiplied({200, 100, 0}, 1), 0xffc86400U);
  EXPECT_EQ(premultiplied({200, 100, 0}, 0), 0U);
}

TEST(CornerImage, IsClearOutsideBorderedOnTheCurveAndFilledWithin) {
  const auto pixels = cornerPixels({});
  ASSERT_EQ(pixels.size(), 100U);
  EXPECT_EQ(pixels[0], 0U);
  EXPECT_EQ(pixels[3 * 10 + 3], premultiplied(cornerAccent, 0.7 + 0.3 * 0.22));
  EXPECT_EQ(pixels[99], premultiplied(cornerAccent, 0.22));
}

TEST(CornerImage, IsMirroredForTheOtherCorners) {
  const auto topLeft = cornerPixels({});
  const auto topRight = cornerPixels({.isRight = true});
  const auto bottomLeft = cornerPixels({.isBottom = true});
  const auto bottomRight = cornerPixels({.isRight = true, .isBottom = true});
  for (std::size_t y = 0; y < 10; ++y) {
    for (std::size_t x = 0; x < 10; ++x) {
      EXPECT_EQ(topRight[y * 10 + 9 - x], topLeft[y * 10 + x]);
      EXPECT_EQ(bottomLeft[(9 - y) * 10 + x], topLeft[y * 10 + x]);
      EXPECT_EQ(bottomRight[(9 - y) * 10 + 9 - x], topLeft[y * 10 + x]);
    }
  }
}

TEST(CornerImage, HasNoColourBrighterThanItsOpacityAllows) {
  for (const auto pixel : cornerPixels({})) {
    const auto alpha = pixel >> 24U;
    EXPECT_LE(pixel & 0xffU, alpha);
    EXPECT_LE(pixel >> 8U & 0xffU, alpha);
    EXPECT_LE(pixel >> 16U & 0xffU, alpha);
  }
}

TEST(CornerImage, HasItsBytesInTheOrderTheServerWants) {
  auto little = cornerImage(corneredFrame, cornerAccent, {}, XCB_IMAGE_ORDER_LSB_FIRST);
  const auto big = cornerImage(corneredFrame, cornerAccent, {}, XCB_IMAGE_ORDER_MSB_FIRST);
  for (auto pixel = little.begin(); pixel != little.end(); pixel += 4) std::reverse(pixel, pixel + 4);
  EXPECT_EQ(little, big);
  ASSERT_FALSE(big.empty());
  EXPECT_EQ(big.back(), premultiplied(cornerAccent, 0.22) & 0xffU);
}

}  // namespace tilwin::x11
