#pragma once

#include <cmath>
#include <cstdint>

namespace tilwin::x11 {

/// The colour with which the desktop highlights things, channels from 0 to 255. X11 desktops have no common
/// setting for it, so the composition root chooses one.
struct AccentColour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const AccentColour&) const = default;
};

/// A pixel of a 32-bit window with this colour and an opacity from 0 to 1, in the format of compositors:
/// alpha in the top byte, then red, green and blue, each multiplied by alpha.
[[nodiscard]] inline std::uint32_t premultiplied(AccentColour colour, double opacity) {
  const auto channel = [opacity](double full) {
    return static_cast<std::uint32_t>(std::lround(full * opacity));
  };
  return channel(255) << 24U | channel(colour.red) << 16U | channel(colour.green) << 8U |
         channel(colour.blue);
}

}  // namespace tilwin::x11
