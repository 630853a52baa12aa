#include "core/geometry/TilePlace.h"

#include <algorithm>
#include <cmath>

namespace tilwin {
namespace {

/// In points. Tiles are rounded to whole points, so the one in the middle may be that far from it.
constexpr double middleTolerance = 1;

constexpr double middleOf(const Span& span) { return span.start + span.length * 0.5; }
constexpr double endOf(const Span& span) { return span.start + span.length; }

bool haveSameMiddle(const Span& first, const Span& second) {
  return std::abs(middleOf(first) - middleOf(second)) <= middleTolerance;
}

/// Where a window of that length starts that is longer than its tile, wherever the area ends.
double startAtTile(const Span& tile, double length, const Span& area, const Span& before) {
  const double toStart = tile.start - area.start;
  const double toEnd = endOf(area) - endOf(tile);
  const bool isInMiddle = std::abs(toStart - toEnd) <= middleTolerance;
  if (isInMiddle || haveSameMiddle(before, tile)) return std::round(middleOf(tile) - length * 0.5);
  return toStart < toEnd ? tile.start : endOf(tile) - length;
}

double startOf(const Span& tile, double length, const Span& area, const Span& before) {
  if (length <= tile.length) return tile.start;
  return std::max(std::min(startAtTile(tile, length, area, before), endOf(area) - length), area.start);
}

Span horizontal(const Rect& rect) { return {rect.x, rect.width}; }
Span vertical(const Rect& rect) { return {rect.y, rect.height}; }

}  // namespace

TilePlace TilePlace::of(const Rect& tile, const Rect& before, const std::vector<DisplayInfo>& displays) {
  const DisplayInfo* display = DisplayInfo::covering(tile, displays);
  return {tile, display == nullptr ? tile : display->visibleFrame, before};
}

Rect TilePlace::frame(Size taken) const {
  return {startOf(horizontal(tile), taken.width, horizontal(area), horizontal(before)),
          startOf(vertical(tile), taken.height, vertical(area), vertical(before)), taken.width, taken.height};
}

Size TilePlace::fitting(Size taken) const {
  const double share = std::min(area.width / taken.width, area.height / taken.height);
  return share < 1 ? Size{std::floor(taken.width * share), std::floor(taken.height * share)} : taken;
}

Rect TilePlace::reported(const Rect& standing) const {
  const bool isRefused = standing == before && standing != tile &&
                         haveSameMiddle(horizontal(before), horizontal(tile)) &&
                         haveSameMiddle(vertical(before), vertical(tile));
  return isRefused ? standing : tile;
}

}  // namespace tilwin
