#include "core/snap/actions/SnapAction.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/geometry/Rect.h"

namespace tilwin {
namespace {

struct ActionRow {
  SnapAction action;
  std::string_view rawValue;
  std::string_view title;
  std::optional<GridRegion> region;  // columns, rows, col, row, colSpan, rowSpan
};

constexpr std::optional<GridRegion> noRegion;

// clang-format off
constexpr std::array table = std::to_array<ActionRow>({
    {SnapAction::leftHalf, "leftHalf", "Left half", GridRegion(2, 1, 0, 0, 1, 1)},
    {SnapAction::rightHalf, "rightHalf", "Right half", GridRegion(2, 1, 1, 0, 1, 1)},
    {SnapAction::topHalf, "topHalf", "Top half", GridRegion(1, 2, 0, 0, 1, 1)},
    {SnapAction::bottomHalf, "bottomHalf", "Bottom half", GridRegion(1, 2, 0, 1, 1, 1)},
    {SnapAction::topLeft, "topLeft", "Top left quarter", GridRegion(2, 2, 0, 0, 1, 1)},
    {SnapAction::topRight, "topRight", "Top right quarter", GridRegion(2, 2, 1, 0, 1, 1)},
    {SnapAction::bottomLeft, "bottomLeft", "Bottom left quarter", GridRegion(2, 2, 0, 1, 1, 1)},
    {SnapAction::bottomRight, "bottomRight", "Bottom right quarter", GridRegion(2, 2, 1, 1, 1, 1)},
    {SnapAction::leftThird, "leftThird", "Left third", GridRegion(3, 1, 0, 0, 1, 1)},
    {SnapAction::centerThird, "centerThird", "Center third", GridRegion(3, 1, 1, 0, 1, 1)},
    {SnapAction::rightThird, "rightThird", "Right third", GridRegion(3, 1, 2, 0, 1, 1)},
    {SnapAction::leftTwoThirds, "leftTwoThirds", "Left two thirds", GridRegion(3, 1, 0, 0, 2, 1)},
    {SnapAction::rightTwoThirds, "rightTwoThirds", "Right two thirds", GridRegion(3, 1, 1, 0, 2, 1)},
    {SnapAction::topLeftSixth, "topLeftSixth", "Top left sixth", GridRegion(3, 2, 0, 0, 1, 1)},
    {SnapAction::topCenterSixth, "topCenterSixth", "Top center sixth", GridRegion(3, 2, 1, 0, 1, 1)},
    {SnapAction::topRightSixth, "topRightSixth", "Top right sixth", GridRegion(3, 2, 2, 0, 1, 1)},
    {SnapAction::bottomLeftSixth, "bottomLeftSixth", "Bottom left sixth", GridRegion(3, 2, 0, 1, 1, 1)},
    {SnapAction::bottomCenterSixth, "bottomCenterSixth", "Bottom center sixth", GridRegion(3, 2, 1, 1, 1, 1)},
    {SnapAction::bottomRightSixth, "bottomRightSixth", "Bottom right sixth", GridRegion(3, 2, 2, 1, 1, 1)},
    {SnapAction::firstFourth, "firstFourth", "First fourth", GridRegion(4, 1, 0, 0, 1, 1)},
    {SnapAction::secondFourth, "secondFourth", "Second fourth", GridRegion(4, 1, 1, 0, 1, 1)},
    {SnapAction::thirdFourth, "thirdFourth", "Third fourth", GridRegion(4, 1, 2, 0, 1, 1)},
    {SnapAction::lastFourth, "lastFourth", "Last fourth", GridRegion(4, 1, 3, 0, 1, 1)},
    {SnapAction::leftThreeFourths, "leftThreeFourths", "Left three fourths", GridRegion(4, 1, 0, 0, 3, 1)},
    {SnapAction::rightThreeFourths, "rightThreeFourths", "Right three fourths", GridRegion(4, 1, 1, 0, 3, 1)},
    {SnapAction::maximize, "maximize", "Maximize", GridRegion(1, 1, 0, 0, 1, 1)},
    {SnapAction::almostMaximize, "almostMaximize", "Almost maximize", noRegion},
    {SnapAction::center, "center", "Center", noRegion},
    {SnapAction::centerLarge, "centerLarge", "Center, large", noRegion},
    {SnapAction::maximizeHeight, "maximizeHeight", "Full height", noRegion},
    {SnapAction::maximizeWidth, "maximizeWidth", "Full width", noRegion},
    {SnapAction::larger, "larger", "Make larger", noRegion},
    {SnapAction::smaller, "smaller", "Make smaller", noRegion},
    {SnapAction::restore, "restore", "Restore previous size", noRegion},
    {SnapAction::nextDisplay, "nextDisplay", "Move to next display", noRegion},
    {SnapAction::previousDisplay, "previousDisplay", "Move to previous display", noRegion},
});
// clang-format on

constexpr auto actions = [] {
  std::array<SnapAction, table.size()> result{};
  std::transform(table.begin(), table.end(), result.begin(), [](const ActionRow& row) { return row.action; });
  return result;
}();

constexpr bool rowsFollowTheEnumeration() {
  for (std::size_t index = 0; index < table.size(); ++index) {
    if (static_cast<std::size_t>(table[index].action) != index) return false;
  }
  return true;
}
static_assert(rowsFollowTheEnumeration(), "rows are found by their index");

const ActionRow& row(SnapAction action) { return table[static_cast<std::size_t>(action)]; }

Rect centred(const Rect& area, double width, double height) {
  return {area.x + 0.5 * area.width - 0.5 * width, area.y + 0.5 * area.height - 0.5 * height, width, height};
}

Span grown(double start, double length, double areaStart, double areaLength) {
  const double step = SnapActions::resizeStep;
  const double size = std::min(length + 2 * step, areaLength);
  return {std::min(std::max(areaStart, start - step), areaStart + areaLength - size), size};
}

Span shrunk(double start, double length) {
  const double size =
      std::max(length - 2 * SnapActions::resizeStep, std::min(length, SnapActions::minimumSize));
  return {start + 0.5 * (length - size), size};
}

Rect fromSpans(const Span& across, const Span& down) {
  return {across.start, down.start, across.length, down.length};
}

using Rule = Rect (*)(const Rect& current, const Rect& area, double outer);

constexpr std::array rules = std::to_array<std::pair<SnapAction, Rule>>({
    {SnapAction::almostMaximize,
     [](const Rect&, const Rect& a, double) { return centred(a, 0.9 * a.width, 0.9 * a.height); }},
    {SnapAction::center,
     [](const Rect& c, const Rect& a, double) {
       return centred(a, std::min(c.width, a.width), std::min(c.height, a.height));
     }},
    {SnapAction::centerLarge,
     [](const Rect&, const Rect& a, double) { return centred(a, 0.65 * a.width, 0.8 * a.height); }},
    {SnapAction::maximizeHeight,
     [](const Rect& c, const Rect& a,
        double outer) { return Rect{c.x, a.inset(outer).y, c.width, a.inset(outer).height}; }},
    {SnapAction::maximizeWidth,
     [](const Rect& c, const Rect& a,
        double outer) { return Rect{a.inset(outer).x, c.y, a.inset(outer).width, c.height}; }},
    {SnapAction::larger,
     [](const Rect& c, const Rect& a,
        double) { return fromSpans(grown(c.x, c.width, a.x, a.width), grown(c.y, c.height, a.y, a.height)); }},
    {SnapAction::smaller, [](const Rect& c, const Rect&,
                             double) { return fromSpans(shrunk(c.x, c.width), shrunk(c.y, c.height)); }},
});

}  // namespace

std::span<const SnapAction> SnapActions::all() { return actions; }

std::string_view SnapActions::rawValue(SnapAction action) { return row(action).rawValue; }

std::optional<SnapAction> SnapActions::fromRawValue(std::string_view rawValue) {
  const auto found = std::find_if(table.begin(), table.end(),
                                  [&](const ActionRow& candidate) { return candidate.rawValue == rawValue; });
  if (found == table.end()) return std::nullopt;
  return found->action;
}

std::string_view SnapActions::title(SnapAction action) { return row(action).title; }

std::optional<GridRegion> SnapActions::region(SnapAction action) { return row(action).region; }

std::optional<Rect> SnapActions::frame(SnapAction action, const Rect& current, const Rect& in, double outer,
                                       double gap) {
  if (const auto& region = row(action).region) return region->frame(in, outer, gap);
  for (const auto& [ruled, rule] : rules) {
    if (ruled == action) return rule(current, in, outer).rounded();
  }
  return std::nullopt;
}

}  // namespace tilwin
