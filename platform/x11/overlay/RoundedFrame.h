#pragma once

#include <array>
#include <vector>

namespace tilwin::x11 {

/// A rectangle in whole pixels.
struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool operator==(const PixelRect&) const = default;
};

/// A rectangle with round corners and a border inside its edge, split into parts that an X server can draw.
/// All lengths are pixels; parts are relative to its top-left corner. If it is too small for the radius or
/// the border, they shrink to half of its shorter side.
class RoundedFrame {
public:
  RoundedFrame(int width, int height, int radius, int border);

  /// The fractions of a pixel that the border and the inside cover, 0 to 1; the rest is outside.
  struct Cover {
    double border = 0;
    double inside = 0;

    bool operator==(const Cover&) const = default;
  };

  /// The side length of the square at each corner that contains its curve.
  [[nodiscard]] int cornerSide() const { return corner_; }
  /// The cover of a pixel in the square of the top-left corner; the other corners are mirror images.
  [[nodiscard]] Cover cornerCover(int x, int y) const;
  /// The straight parts of the border between the corners: top, bottom, left, right.
  [[nodiscard]] std::array<PixelRect, 4> sides() const;
  /// The whole border as rectangles that do not overlap, without antialiasing: a pixel is in it or not.
  [[nodiscard]] std::vector<PixelRect> ring() const;

private:
  /// Whether a point of the top-left corner's square is inside the frame shrunk by `inset` on each side.
  [[nodiscard]] bool isWithin(double x, double y, int inset) const;
  /// The first column of a row whose pixel centre is inside the frame shrunk by `inset`.
  [[nodiscard]] int firstWithin(int row, int inset) const;

  int width_;
  int height_;
  int radius_;
  int border_;
  int corner_;
};

}  // namespace tilwin::x11
