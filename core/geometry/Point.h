#pragma once

namespace tilwin {

/// A place in the global desktop space: points, origin at the top-left corner of the primary display, x to
/// the right and y downward.
struct Point {
  double x = 0;
  double y = 0;

  bool operator==(const Point&) const = default;
};

}  // namespace tilwin
