#include "platform/x11/Strut.h"

#include <algorithm>
#include <array>

namespace tilwin::x11 {

namespace {

constexpr std::size_t partialCount = 12;
constexpr std::size_t wholeCount = 4;

/// In the order of both properties: the depths at 0 to 3, and in the partial one the first and last
/// coordinate of each along its edge from 4 on.
constexpr std::array edges{Strut::Edge::left, Strut::Edge::right, Strut::Edge::top, Strut::Edge::bottom};

struct Span {
  double start = 0;
  double length = 0;
};

Rect roomAlong(Strut::Edge edge, double depth, Span span, const Rect& desktop) {
  switch (edge) {
    case Strut::Edge::left:
      return {0, span.start, depth, span.length};
    case Strut::Edge::right:
      return {desktop.width - depth, span.start, depth, span.length};
    case Strut::Edge::top:
      return {span.start, 0, span.length, depth};
    case Strut::Edge::bottom:
      break;
  }
  return {span.start, desktop.height - depth, span.length, depth};
}

bool touches(const Rect& room, const Rect& monitor) {
  return room.x < monitor.maxX() && monitor.x < room.maxX() && room.y < monitor.maxY() &&
         monitor.y < room.maxY();
}

Rect without(const Rect& visible, const Strut& strut) {
  const double left = strut.edge == Strut::Edge::left ? std::max(visible.x, strut.room.maxX()) : visible.x;
  const double top = strut.edge == Strut::Edge::top ? std::max(visible.y, strut.room.maxY()) : visible.y;
  const double right =
      strut.edge == Strut::Edge::right ? std::min(visible.maxX(), strut.room.x) : visible.maxX();
  const double bottom =
      strut.edge == Strut::Edge::bottom ? std::min(visible.maxY(), strut.room.y) : visible.maxY();
  return {left, top, right - left, bottom - top};
}

}  // namespace

std::vector<Strut> strutsOf(const std::vector<std::uint32_t>& partial,
                            const std::vector<std::uint32_t>& whole, const Rect& desktop) {
  const bool isPartial = partial.size() >= partialCount;
  if (!isPartial && whole.size() < wholeCount) return {};
  std::vector<Strut> result;
  for (std::size_t index = 0; index < edges.size(); ++index) {
    const double depth = isPartial ? partial[index] : whole[index];
    if (depth <= 0) continue;
    const bool vertical = index < 2;
    Span span{0, vertical ? desktop.height : desktop.width};
    if (isPartial) {
      const double first = partial[4 + 2 * index];
      const double last = partial[5 + 2 * index];
      span = {first, last - first + 1};
    }
    result.push_back({edges[index], roomAlong(edges[index], depth, span, desktop)});
  }
  return result;
}

Rect visibleFrame(const Rect& monitor, std::span<const Strut> struts) {
  Rect visible = monitor;
  for (const auto& strut : struts) {
    if (!touches(strut.room, monitor)) continue;
    const Rect less = without(visible, strut);
    if (less.width > 0 && less.height > 0) visible = less;
  }
  return visible;
}

}  // namespace tilwin::x11
