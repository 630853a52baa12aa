#include "platform/x11/displays/WorkArea.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace tilwin::x11 {

namespace {

constexpr std::size_t numbersPerWorkspace = 4;

/// How far a bar may be off the edges it belongs to, in points: some managers count its border, some do not.
constexpr double slack = 2;

/// The coordinates of the left, top, right and bottom side.
using Box = std::array<double, 4>;
/// Which way is out of the rectangle at each of them.
constexpr Box outward{-1, -1, 1, 1};

constexpr std::size_t opposite(std::size_t side) { return (side + 2) % 4; }

Box boxOf(const Rect& rect) { return {rect.x, rect.y, rect.maxX(), rect.maxY()}; }

bool isEmpty(const Box& sides) { return sides[2] <= sides[0] || sides[3] <= sides[1]; }

double inner(std::size_t side, double first, double second) {
  return outward[side] < 0 ? std::max(first, second) : std::min(first, second);
}

Box intersection(const Box& first, const Box& second) {
  Box result{};
  for (std::size_t side = 0; side < result.size(); ++side)
    result[side] = inner(side, first[side], second[side]);
  return result;
}

bool isNear(double first, double second) {
  return std::max(first, second) - std::min(first, second) <= slack;
}

double length(std::size_t side, const Box& rect) {
  const std::size_t from = side % 2 == 0 ? 1 : 0;
  return rect[from + 2] - rect[from];
}

/// The coordinate at which a display's free part begins at this side, if the window shown there is a bar that
/// the work area tells of; otherwise nothing.
std::optional<double> endOfBar(const Box& shown, std::size_t side, const Box& display, const Box& workArea,
                               const Box& desktop) {
  const Box bar = intersection(shown, display);
  const double depthTold = (desktop[side] - workArea[side]) * outward[side];
  if (depthTold <= 0 || isEmpty(bar) || !isNear(bar[side], display[side])) return std::nullopt;
  if (2 * length(side, bar) < length(side, display)) return std::nullopt;
  const double end = bar[opposite(side)];
  if (isNear(end, workArea[side])) return workArea[side];
  const double endTold = display[side] - depthTold * outward[side];
  return isNear(end, endTold) ? std::optional(endTold) : std::nullopt;
}

void setVisible(DisplayInfo& display, const Box& visible) {
  if (isEmpty(visible)) return;
  display.visibleFrame = {visible[0], visible[1], visible[2] - visible[0], visible[3] - visible[1]};
}

void leaveBarsFree(DisplayInfo& display, const Box& workArea, const Box& desktop,
                   std::span<const Rect> shown) {
  const Box whole = boxOf(display.frame);
  Box visible = boxOf(display.visibleFrame);
  for (const auto& area : shown) {
    for (std::size_t side = 0; side < visible.size(); ++side) {
      const auto end = endOfBar(boxOf(area), side, whole, workArea, desktop);
      if (end) visible[side] = inner(side, visible[side], *end);
    }
  }
  setVisible(display, visible);
}

}  // namespace

std::optional<Rect> workAreaOf(const std::vector<std::uint32_t>& numbers, std::uint32_t workspace) {
  const std::size_t first = numbersPerWorkspace * workspace;
  const std::size_t at = first + numbersPerWorkspace <= numbers.size() ? first : 0;
  if (numbers.size() < numbersPerWorkspace) return std::nullopt;
  const auto number = [&](std::size_t index) {
    return static_cast<double>(static_cast<std::int32_t>(numbers[at + index]));
  };
  const Rect result{number(0), number(1), number(2), number(3)};
  return result.width > 0 && result.height > 0 ? std::optional(result) : std::nullopt;
}

void WorkAreaRule::apply(const Rect& workArea, const Rect& desktop, std::span<const Rect> shown,
                         std::vector<DisplayInfo>& displays) {
  note(workArea, desktop);
  if (notedFor_ != desktop) return;
  const Box free = boxOf(workArea);
  if (displays.size() != 1) {
    for (auto& display : displays) leaveBarsFree(display, free, boxOf(desktop), shown);
    return;
  }
  auto& display = displays.front();
  noteStruts(workArea, display);
  Box visible = boxOf(display.visibleFrame);
  for (std::size_t side = 0; side < visible.size(); ++side) {
    if (!toldByStruts_[side]) visible[side] = inner(side, visible[side], free[side]);
  }
  setVisible(display, visible);
}

void WorkAreaRule::note(const Rect& workArea, const Rect& desktop) {
  if (std::exchange(noted_, workArea) == workArea) return;
  notedFor_ = desktop;
  toldByStruts_ = {};
}

void WorkAreaRule::noteStruts(const Rect& workArea, const DisplayInfo& display) {
  const Box free = boxOf(workArea);
  const Box visible = boxOf(display.visibleFrame);
  const Box whole = boxOf(display.frame);
  for (std::size_t side = 0; side < free.size(); ++side) {
    if (visible[side] != whole[side] && visible[side] == free[side]) toldByStruts_[side] = true;
  }
}

}  // namespace tilwin::x11
