#include "app/settings/form/AreaDrag.h"

#include <algorithm>
#include <cmath>

namespace tilwin {
namespace {

/// One side of an area: where it starts, and how long it is.
struct Side {
  double start;
  double length;
};

/// Which end of a side is near to a place: -1 the start, 1 the end, 0 neither. Of two, the nearer one.
int endNear(double place, double start, double end, double reach) {
  const double toStart = std::abs(place - start);
  const double toEnd = std::abs(place - end);
  if (std::min(toStart, toEnd) > reach) return 0;
  return toStart < toEnd ? -1 : 1;
}

Side moved(Side side, double by) { return {std::clamp(side.start + by, 0.0, 1 - side.length), side.length}; }

Side startMoved(Side side, double by) {
  const double end = side.start + side.length;
  const double start = std::clamp(side.start + by, 0.0, end - NormalizedRect::smallestShare);
  return {start, end - start};
}

Side endMoved(Side side, double by) {
  return {side.start, std::clamp(side.length + by, NormalizedRect::smallestShare, 1 - side.start)};
}

Side dragged(Side side, double by, int end, bool isWhole) {
  if (end < 0) return startMoved(side, by);
  if (end > 0) return endMoved(side, by);
  return isWhole ? moved(side, by) : side;
}

}  // namespace

AreaDrag::AreaDrag(const NormalizedRect& area, Point grabbed, Size reach) : start_(area), grabbed_(grabbed) {
  const double maxX = area.x + area.width;
  const double maxY = area.y + area.height;
  inside_ = grabbed.x >= area.x - reach.width && grabbed.x <= maxX + reach.width &&
            grabbed.y >= area.y - reach.height && grabbed.y <= maxY + reach.height;
  if (!inside_) return;
  across_ = endNear(grabbed.x, area.x, maxX, reach.width);
  down_ = endNear(grabbed.y, area.y, maxY, reach.height);
}

NormalizedRect AreaDrag::with(Point pointer) const {
  if (!inside_) return start_;
  const bool isWhole = across_ == 0 && down_ == 0;
  const Side x = dragged({start_.x, start_.width}, pointer.x - grabbed_.x, across_, isWhole);
  const Side y = dragged({start_.y, start_.height}, pointer.y - grabbed_.y, down_, isWhole);
  return {x.start, y.start, x.length, y.length};
}

}  // namespace tilwin
