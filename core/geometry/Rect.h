#pragma once

#include <cstddef>
#include <functional>

namespace tilwin {

/// A position in the global desktop space, in points. The origin is the top-left corner of the primary
/// display; x grows to the right, y grows downward.
struct Point {
  double x = 0;
  double y = 0;

  bool operator==(const Point&) const = default;
};

/// A size in points.
struct Size {
  double width = 0;
  double height = 0;

  bool operator==(const Size&) const = default;
};

/// The extent of a rectangle along one axis.
struct Span {
  double start = 0;
  double length = 0;

  bool operator==(const Span&) const = default;
};

/// A rectangle in the global desktop space, in points; see `Point`.
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

  /// Left and top edges are inside the rectangle, right and bottom edges are not.
  [[nodiscard]] constexpr bool contains(double px, double py) const {
    return x <= px && px < maxX() && y <= py && py < maxY();
  }
  /// Whether each of the four fields differs from the other's by at most `tolerance`.
  [[nodiscard]] bool isClose(const Rect& to, double tolerance) const;
  /// Whether a window can be placed there: every edge is at most `farthest` from the origin, and no field is
  /// NaN or infinite. X11 coordinates have 16 bits.
  [[nodiscard]] bool isPlaceable() const;
  static constexpr double farthest = 32767;  ///< points
  /// The fraction of this rectangle's area that the other covers, 0 to 1; 0 if this one is empty.
  [[nodiscard]] double overlapFraction(const Rect& with) const;
  /// This rectangle moved inside the area, and shrunk first if it is larger.
  [[nodiscard]] Rect moved(const Rect& into) const;
  /// This rectangle without a margin of that many points on each side; at least 1 point wide and high.
  [[nodiscard]] Rect inset(double margin) const;
  /// Each field rounded to the nearest integer, halves away from zero.
  [[nodiscard]] Rect rounded() const;
};

}  // namespace tilwin

template <>
struct std::hash<tilwin::Rect> {
  std::size_t operator()(const tilwin::Rect& rect) const noexcept;
};
