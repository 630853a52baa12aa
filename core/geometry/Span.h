#pragma once

namespace tilwin {

/// One axis of a rectangle.
struct Span {
  double start = 0;
  double length = 0;

  bool operator==(const Span&) const = default;
};

}  // namespace tilwin
