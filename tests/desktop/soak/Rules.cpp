#include "tests/desktop/soak/Rules.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "tests/desktop/DefaultShortcuts.h"
#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop::soak {

namespace {

/// Along one axis: from which of `count` equal cells on, and how many.
struct Cells {
  int count = 1;
  int first = 0;
  int covered = 1;
};

struct Tile {
  std::string_view action;
  Cells across;
  Cells down;
};

constexpr std::array tiles = std::to_array<Tile>({
    {"leftHalf", {2, 0, 1}, {}},          {"rightHalf", {2, 1, 1}, {}},
    {"topHalf", {}, {2, 0, 1}},           {"bottomHalf", {}, {2, 1, 1}},
    {"topLeft", {2, 0, 1}, {2, 0, 1}},    {"topRight", {2, 1, 1}, {2, 0, 1}},
    {"bottomLeft", {2, 0, 1}, {2, 1, 1}}, {"bottomRight", {2, 1, 1}, {2, 1, 1}},
    {"leftThird", {3, 0, 1}, {}},         {"centerThird", {3, 1, 1}, {}},
    {"rightThird", {3, 2, 1}, {}},        {"leftTwoThirds", {3, 0, 2}, {}},
    {"rightTwoThirds", {3, 1, 2}, {}},    {"firstFourth", {4, 0, 1}, {}},
    {"secondFourth", {4, 1, 1}, {}},      {"thirdFourth", {4, 2, 1}, {}},
    {"lastFourth", {4, 3, 1}, {}},        {"leftThreeFourths", {4, 0, 3}, {}},
    {"rightThreeFourths", {4, 1, 3}, {}}, {"maximize", {}, {}},
});

constexpr double step = 32;
constexpr double least = 240;
constexpr double cycleTolerance = 2;

constexpr std::array<std::array<std::string_view, 3>, 2> cycles{
    {{"leftHalf", "leftTwoThirds", "leftThird"}, {"rightHalf", "rightTwoThirds", "rightThird"}}};

Span spanOf(const Cells& cells, double start, double length, const Spacing& spacing) {
  const double inner = std::max(length - 2 * spacing.outer, 1.0);
  const double cell = (inner + spacing.gap) / cells.count - spacing.gap;
  const double from = start + spacing.outer + cells.first * (cell + spacing.gap);
  return {from, cells.covered * (cell + spacing.gap) - spacing.gap};
}

Rect withSize(double width, double height, const Rect& inTheMiddleOf) {
  return {inTheMiddleOf.midX() - width / 2, inTheMiddleOf.midY() - height / 2, width, height};
}

double lessAStep(double length) { return length <= least ? length : std::max(length - 2 * step, least); }

using Rule = Rect (*)(const Rect& current, const Rect& area, const Spacing& spacing);

struct FreeRule {
  std::string_view action;
  Rule frame;
};

constexpr std::array freeRules = std::to_array<FreeRule>({
    {"almostMaximize", [](const Rect&, const Rect& area,
                          const Spacing&) { return withSize(0.9 * area.width, 0.9 * area.height, area); }},
    {"center",
     [](const Rect& now, const Rect& area, const Spacing&) {
       return withSize(std::min(now.width, area.width), std::min(now.height, area.height), area);
     }},
    {"maximizeHeight",
     [](const Rect& now, const Rect& area, const Spacing& spacing) {
       const Span down = spanOf({}, area.y, area.height, spacing);
       return Rect{now.x, down.start, now.width, down.length};
     }},
    {"maximizeWidth",
     [](const Rect& now, const Rect& area, const Spacing& spacing) {
       const Span across = spanOf({}, area.x, area.width, spacing);
       return Rect{across.start, now.y, across.length, now.height};
     }},
    {"larger",
     [](const Rect& now, const Rect& area, const Spacing&) {
       return Rect{now.x - step, now.y - step, now.width + 2 * step, now.height + 2 * step}.moved(area);
     }},
    {"smaller", [](const Rect& now, const Rect&,
                   const Spacing&) { return withSize(lessAStep(now.width), lessAStep(now.height), now); }},
});

constexpr auto allPlacing = [] {
  std::array<std::string_view, tiles.size() + freeRules.size()> names{};
  auto next =
      std::transform(tiles.begin(), tiles.end(), names.begin(), [](const Tile& tile) { return tile.action; });
  std::transform(freeRules.begin(), freeRules.end(), next, [](const FreeRule& rule) { return rule.action; });
  return names;
}();

struct DisplayChord {
  std::string_view action;
  const char* chord;
};

constexpr std::array<DisplayChord, 2> toAnotherDisplay{
    {{"nextDisplay", nextDisplayKeys}, {"previousDisplay", previousDisplayKeys}}};

}  // namespace

namespace rules {

std::span<const std::string_view> placing() { return allPlacing; }

std::string chordOf(std::string_view action) {
  for (const auto& row : oneDisplayShortcuts) {
    if (row.action == action) return row.chord;
  }
  for (const auto& row : toAnotherDisplay) {
    if (row.action == action) return row.chord;
  }
  throw HarnessError("no shortcut for " + std::string(action));
}

Rect frame(std::string_view action, const Rect& current, const Rect& area, const Spacing& spacing) {
  for (const Tile& tile : tiles) {
    if (tile.action != action) continue;
    const Span across = spanOf(tile.across, area.x, area.width, spacing);
    const Span down = spanOf(tile.down, area.y, area.height, spacing);
    return Rect{across.start, down.start, across.length, down.length}.rounded();
  }
  for (const FreeRule& rule : freeRules) {
    if (rule.action == action) return rule.frame(current, area, spacing).rounded();
  }
  throw HarnessError(std::string(action) + " places no window");
}

std::string_view cycled(std::string_view action, const Rect& current, const Rect& area,
                        const Spacing& spacing) {
  for (const auto& cycle : cycles) {
    if (std::ranges::find(cycle, action) == cycle.end()) continue;
    for (std::size_t index = 0; index < cycle.size(); ++index) {
      if (frame(cycle[index], current, area, spacing).isClose(current, cycleTolerance)) {
        return cycle[(index + 1) % cycle.size()];
      }
    }
  }
  return action;
}

}  // namespace rules

}  // namespace tilwin::desktop::soak
