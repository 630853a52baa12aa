#include "platform/x11/displays/Strut.h"

#include <algorithm>
#include <array>

namespace tilwin::x11 {

namespace {

constexpr std::size_t partialCount = 12;
constexpr std::size_t wholeCount = 4;

/// For one edge of the desktop: `at` is its coordinate in a rectangle, `room` is the rectangle of a strut of
/// some depth at that edge, `without` is what such a strut leaves of a visible frame.
struct EdgeRule {
  Strut::Edge edge;
  bool isUpright;
  double (*at)(const Rect&);
  Rect (*room)(double depth, const Span& along, const Rect& desktop);
  Rect (*without)(const Rect& visible, const Rect& room);
};

Rect fromEdges(double left, double top, double right, double bottom) {
  return {left, top, right - left, bottom - top};
}

/// In the order of both properties: the depths are at index 0 to 3. In the partial property, the first and
/// last coordinate of each strut along its edge follow from index 4 on.
constexpr std::array<EdgeRule, 4> rules{{
    {Strut::Edge::left, true, [](const Rect& rect) { return rect.x; },
     [](double depth, const Span& along, const Rect&) {
       return Rect{0, along.start, depth, along.length};
     },
     [](const Rect& visible, const Rect& room) {
       return fromEdges(std::max(visible.x, room.maxX()), visible.y, visible.maxX(), visible.maxY());
     }},
    {Strut::Edge::right, true, [](const Rect& rect) { return rect.maxX(); },
     [](double depth, const Span& along, const Rect& desktop) {
       return Rect{desktop.width - depth, along.start, depth, along.length};
     },
     [](const Rect& visible, const Rect& room) {
       return fromEdges(visible.x, visible.y, std::min(visible.maxX(), room.x), visible.maxY());
     }},
    {Strut::Edge::top, false, [](const Rect& rect) { return rect.y; },
     [](double depth, const Span& along, const Rect&) {
       return Rect{along.start, 0, along.length, depth};
     },
     [](const Rect& visible, const Rect& room) {
       return fromEdges(visible.x, std::max(visible.y, room.maxY()), visible.maxX(), visible.maxY());
     }},
    {Strut::Edge::bottom, false, [](const Rect& rect) { return rect.maxY(); },
     [](double depth, const Span& along, const Rect& desktop) {
       return Rect{along.start, desktop.height - depth, along.length, depth};
     },
     [](const Rect& visible, const Rect& room) {
       return fromEdges(visible.x, visible.y, visible.maxX(), std::min(visible.maxY(), room.y));
     }},
}};

const EdgeRule& ruleFor(Strut::Edge edge) {
  return *std::find_if(rules.begin(), rules.end(), [&](const EdgeRule& rule) { return rule.edge == edge; });
}

Span spanIn(const std::vector<std::uint32_t>& partial, std::size_t index) {
  const double first = partial[wholeCount + 2 * index];
  const double last = partial[wholeCount + 2 * index + 1];
  return {first, last - first + 1};
}

bool touches(const Rect& room, const Rect& monitor) {
  return room.x < monitor.maxX() && monitor.x < room.maxX() && room.y < monitor.maxY() &&
         monitor.y < room.maxY();
}

}  // namespace

std::vector<Strut> strutsOf(const std::vector<std::uint32_t>& partial,
                            const std::vector<std::uint32_t>& whole, const Rect& desktop) {
  const bool isPartial = partial.size() >= partialCount;
  if (!isPartial && whole.size() < wholeCount) return {};
  std::vector<Strut> result;
  for (std::size_t index = 0; index < rules.size(); ++index) {
    const auto& rule = rules[index];
    const double depth = isPartial ? partial[index] : whole[index];
    if (depth <= 0) continue;
    const Span wholeEdge{0, rule.isUpright ? desktop.height : desktop.width};
    const Span along = isPartial ? spanIn(partial, index) : wholeEdge;
    result.push_back({rule.edge, rule.room(depth, along, desktop)});
  }
  return result;
}

Strut strutSeenAt(const Rect& area, const Strut& told, std::span<const Rect> monitors) {
  const auto& rule = ruleFor(told.edge);
  if (touches(told.room, area)) {
    const double left = rule.isUpright ? std::min(told.room.x, area.x) : area.x;
    const double right = rule.isUpright ? std::max(told.room.maxX(), area.maxX()) : area.maxX();
    const double top = rule.isUpright ? area.y : std::min(told.room.y, area.y);
    const double bottom = rule.isUpright ? area.maxY() : std::max(told.room.maxY(), area.maxY());
    return {told.edge, fromEdges(left, top, right, bottom)};
  }
  const bool isAtEdge = std::ranges::any_of(monitors, [&](const Rect& monitor) {
    return touches(area, monitor) && rule.at(area) == rule.at(monitor);
  });
  return isAtEdge ? Strut{told.edge, area} : told;
}

Rect visibleFrame(const Rect& monitor, std::span<const Strut> struts) {
  Rect visible = monitor;
  for (const auto& strut : struts) {
    if (!touches(strut.room, monitor)) continue;
    const Rect less = ruleFor(strut.edge).without(visible, strut.room);
    if (less.width > 0 && less.height > 0) visible = less;
  }
  return visible;
}

}  // namespace tilwin::x11
