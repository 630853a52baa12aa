#include "app/settings/form/AreaDrag.h"

#include <algorithm>
#include <cmath>

namespace tilwin {
namespace {

bool isNear(double place, double edge, double reach) { return std::abs(place - edge) <= reach; }

/// One side of an area: where it starts, and how long it is.
struct Side {
  double start;
  double length;
};

Side moved(Side side, double by) { return {std::clamp(side.start + by, 0.0, 1 - side.length), side.length}; }

Side startMoved(Side side, double by) {
  const double end = side.start + side.length;
  const double start = std::clamp(side.start + by, 0.0, end - NormalizedRect::smallestShare);
  return {start, end - start};
}

Side endMoved(Side side, double by) {
  return {side.start, std::clamp(side.length + by, NormalizedRect::smallestShare, 1 - side.start)};
}

Side dragged(Side side, double by, bool byStart, bool byEnd, bool isWhole) {
  if (byStart) return startMoved(side, by);
  if (byEnd) return endMoved(side, by);
  return isWhole ? moved(side, by) : side;
}

}  // namespace

AreaDrag::AreaDrag(const NormalizedRect& area, Point grabbed, Size reach) : start_(area), grabbed_(grabbed) {
  const double maxX = area.x + area.width;
  const double maxY = area.y + area.height;
  inside_ = grabbed.x >= area.x - reach.width && grabbed.x <= maxX + reach.width &&
            grabbed.y >= area.y - reach.height && grabbed.y <= maxY + reach.height;
  if (!inside_) return;
  right_ = isNear(grabbed.x, maxX, reach.width);
  left_ = !right_ && isNear(grabbed.x, area.x, reach.width);
  bottom_ = isNear(grabbed.y, maxY, reach.height);
  top_ = !bottom_ && isNear(grabbed.y, area.y, reach.height);
}

NormalizedRect AreaDrag::with(Point pointer) const {
  if (!inside_) return start_;
  const bool isWhole = !left_ && !right_ && !top_ && !bottom_;
  const Side x = dragged({start_.x, start_.width}, pointer.x - grabbed_.x, left_, right_, isWhole);
  const Side y = dragged({start_.y, start_.height}, pointer.y - grabbed_.y, top_, bottom_, isWhole);
  return {x.start, y.start, x.length, y.length};
}

}  // namespace tilwin
