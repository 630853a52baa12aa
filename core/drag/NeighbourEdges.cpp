#include "core/drag/NeighbourEdges.h"

#include <algorithm>
#include <cmath>

namespace tilwin {
namespace {

constexpr double widestGap = 2;     ///< points; displays with a wider gap do not adjoin
constexpr double leastOverlap = 1;  ///< points; the shared part of the edges must be longer

bool meet(double edge, double other) { return std::abs(edge - other) <= widestGap; }

}  // namespace

NeighbourEdges NeighbourEdges::around(const DisplayInfo& display, const std::vector<DisplayInfo>& among) {
  const Rect& own = display.frame;
  NeighbourEdges edges;
  for (const DisplayInfo& each : among) {
    if (each.id == display.id) continue;
    const Rect& other = each.frame;
    if (std::min(other.maxY(), own.maxY()) - std::max(other.y, own.y) > leastOverlap) {
      edges.left |= meet(other.maxX(), own.x);
      edges.right |= meet(other.x, own.maxX());
    }
    if (std::min(other.maxX(), own.maxX()) - std::max(other.x, own.x) > leastOverlap) {
      edges.top |= meet(other.maxY(), own.y);
      edges.bottom |= meet(other.y, own.maxY());
    }
  }
  return edges;
}

}  // namespace tilwin
