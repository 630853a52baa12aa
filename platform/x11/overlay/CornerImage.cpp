#include "platform/x11/overlay/CornerImage.h"

namespace tilwin::x11 {

namespace {

void appendPixel(std::vector<std::uint8_t>& bytes, std::uint32_t pixel, xcb_image_order_t order) {
  for (unsigned index = 0; index < sizeof pixel; ++index) {
    const unsigned fromLow = order == XCB_IMAGE_ORDER_LSB_FIRST ? index : sizeof pixel - 1 - index;
    bytes.push_back(static_cast<std::uint8_t>(pixel >> (8 * fromLow)));
  }
}

}  // namespace

std::vector<std::uint8_t> cornerImage(const RoundedFrame& frame, AccentColour accent, Corner corner,
                                      xcb_image_order_t order) {
  std::vector<std::uint8_t> bytes;
  const int last = frame.cornerSide() - 1;
  for (int y = 0; y <= last; ++y) {
    for (int x = 0; x <= last; ++x) {
      const auto cover = frame.cornerCover(corner.isRight ? last - x : x, corner.isBottom ? last - y : y);
      const double opacity = cover.border * borderOverFill + cover.inside * OverlayStyle::fillOpacity;
      appendPixel(bytes, premultiplied(accent, opacity), order);
    }
  }
  return bytes;
}

}  // namespace tilwin::x11
