#pragma once

#include <cstddef>
#include <functional>

namespace tilwin {

/// A place in the global desktop space: points, origin at the top-left corner of the primary display, x to
/// the right and y downward.
struct Point {
  double x = 0;
  double y = 0;

  bool operator==(const Point&) const = default;
};

/// How large something in the global desktop space is, in points.
struct Size {
  double width = 0;
  double height = 0;

  bool operator==(const Size&) const = default;
};

/// One axis of a rectangle.
struct Span {
  double start = 0;
  double length = 0;

  bool operator==(const Span&) const = default;
};

/// A rectangle in the global desktop space: points, origin at the top-left corner of the primary display,
/// x to the right and y downward.
struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  bool operator==(const Rect&) const = default;

  [[nodiscard]] constexpr double maxX() const { return x + width; }
  [[nodiscard]] constexpr double maxY() const { return y + height; }
  [[nodiscard]] constexpr double midX() const { return x + width * 0.5; }
  [[nodiscard]] constexpr double midY() const { return y + height * 0.5; }

  /// Half-open: the left and top edges belong to the rectangle, the right and bottom ones do not.
  [[nodiscard]] constexpr bool contains(double px, double py) const {
    return x <= px && px < maxX() && y <= py && py < maxY();
  }
  /// Whether each of the four fields differs from the other's by at most `tolerance`.
  [[nodiscard]] bool isClose(const Rect& to, double tolerance) const;
  /// Whether a window can be there: every edge lies at most `farthest` from the origin, and no field is NaN
  /// or infinite. X11 counts places in 16 bits, and no desktop reaches farther.
  [[nodiscard]] bool isPlaceable() const;
  static constexpr double farthest = 32767;  ///< points
  /// The share of this rectangle's own area that the other covers, 0 to 1; 0 for an empty rectangle.
  [[nodiscard]] double overlapFraction(const Rect& with) const;
  /// This rectangle shrunk to fit the area if need be, then pushed inside it.
  [[nodiscard]] Rect moved(const Rect& into) const;
  /// What is left inside a margin of this many points on each side; at least one point each way.
  [[nodiscard]] Rect inset(double margin) const;
  /// Each field rounded to the nearest whole number, halves away from zero.
  [[nodiscard]] Rect rounded() const;
};

}  // namespace tilwin

template <>
struct std::hash<tilwin::Rect> {
  std::size_t operator()(const tilwin::Rect& rect) const noexcept;
};
