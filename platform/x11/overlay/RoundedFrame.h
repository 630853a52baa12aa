#pragma once

#include <array>
#include <vector>

namespace tilwin::x11 {

/// Whole pixels, from the frame's own top-left corner.
struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool operator==(const PixelRect&) const = default;
};

/// A rectangle with round corners and a border along the inside of its edge, taken apart into what a server
/// can draw. In a frame too small for its corners or border they shrink to half of its shorter side.
class RoundedFrame {
public:
  RoundedFrame(int width, int height, int radius, int border);

  /// How much of a pixel the border and the inside cover, 0 to 1; what is left is outside.
  struct Cover {
    double border = 0;
    double inside = 0;

    bool operator==(const Cover&) const = default;
  };

  /// The side of the square at each corner that is not straight border or plain inside.
  [[nodiscard]] int cornerSide() const { return corner_; }
  /// Of a pixel in the top-left corner's square; the other three are its mirror images.
  [[nodiscard]] Cover cornerCover(int x, int y) const;
  /// The straight parts of the border between the corners: top, bottom, left, right.
  [[nodiscard]] std::array<PixelRect, 4> sides() const;
  /// The whole border in rectangles that do not overlap, for where a pixel is either in it or not.
  [[nodiscard]] std::vector<PixelRect> ring() const;

private:
  /// Whether a point of the corner's square is in the shape that lies this far within the frame's edge.
  [[nodiscard]] bool isWithin(double x, double y, int inset) const;
  [[nodiscard]] int firstWithin(int row, int inset) const;

  int width_;
  int height_;
  int radius_;
  int border_;
  int corner_;
};

}  // namespace tilwin::x11
