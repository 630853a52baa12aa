#include "core/geometry/NormalizedRect.h"

#include <algorithm>

#include "core/geometry/Rect.h"

namespace tilwin {
namespace {

Span clampedSpan(double start, double length) {
  const double from = std::min(std::max(start, 0.0), 1 - NormalizedRect::smallestShare);
  return {from, std::min(std::max(length, NormalizedRect::smallestShare), 1 - from)};
}

double divisor(double side) { return side >= 1 ? side : 1; }

}  // namespace

NormalizedRect NormalizedRect::of(const Rect& rect, const Rect& in) {
  const double across = divisor(in.width);
  const double down = divisor(in.height);
  return {(rect.x - in.x) / across, (rect.y - in.y) / down, rect.width / across, rect.height / down};
}

Rect NormalizedRect::rect(const Rect& in) const {
  const Span across = clampedSpan(x, width);
  const Span down = clampedSpan(y, height);
  return Rect{in.x + across.start * in.width, in.y + down.start * in.height, across.length * in.width,
              down.length * in.height}
      .rounded();
}

}  // namespace tilwin
