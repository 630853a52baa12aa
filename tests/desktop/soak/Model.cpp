#include "tests/desktop/soak/Model.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace tilwin::desktop::soak {

namespace {

constexpr double alreadyThere = 1;
/// The part of a window by which it can be taken hold of.
constexpr double titleStrip = 40;

bool contains(const Rect& outer, const Rect& inner) {
  return outer.x <= inner.x && outer.y <= inner.y && inner.maxX() <= outer.maxX() &&
         inner.maxY() <= outer.maxY();
}

std::string wholePart(double value) { return std::to_string(static_cast<long long>(value)); }

}  // namespace

void Memory::remember(const Standing& standing) {
  if (std::exchange(mayBeEmpty, false)) possible.push_back(standing);
}

bool Expected::allows(const Standing& seen) const {
  if (state && *state != seen.state) return false;
  // From frames of half points on, a share of a display may be rounded the other way.
  constexpr double rounding = 1;
  const auto isHere = [&](const Rect& frame) { return seen.frame.isClose(frame, rounding); };
  return frames.empty() || std::ranges::any_of(frames, isHere);
}

void Model::pressed(ModelWindow& window, std::string_view action) const {
  if (action == "restore") return restore(window);
  if (action == "nextDisplay" || action == "previousDisplay") {
    return moveToNeighbour(window, action == "nextDisplay");
  }
  const Rect area = displayOf(window.now.frame).area();
  if (spacing.cycles) action = rules::cycled(action, window.now.frame, area, spacing);
  const Rect target = rules::frame(action, window.now.frame, area, spacing);
  if (window.now.frame.isClose(target, alreadyThere)) return;
  window.memory.remember(window.now);
  move(window, target);
}

void Model::perhapsPressed(ModelWindow& window, std::string_view action) const {
  ModelWindow moved = window;
  pressed(moved, action);
  if (moved.now == window.now) return;
  if (window.memory.mayBeEmpty) window.memory.possible.push_back(window.now);
  const bool isAnywhere = moved.next.frames.empty();
  window.next.frames.push_back(moved.now.frame);
  if (isAnywhere) window.next.frames.clear();
  if (window.now.state != State::normal) window.next.state.reset();
}

void Model::snapped(ModelWindow& window, std::string_view action, const Display& on) const {
  window.memory.remember(window.now);
  move(window, rules::frame(action, window.now.frame, on.area(), spacing));
}

void Model::perhapsSnapped(ModelWindow& window) {
  if (window.memory.mayBeEmpty) window.memory.possible.push_back(window.now);
  leftToManager(window);
}

void Model::placed(ModelWindow& window, const Rect& frame) const { move(window, frame); }

void Model::leftToManager(ModelWindow& window, std::optional<State> state) { window.next = {{}, state}; }

void Model::laidOut(ModelWindow& window, const NormalizedRect& share, const Display& on) const {
  window.memory.remember(window.now);
  move(window, share.rect(on.area()));
}

void Model::seen(ModelWindow& window, const Standing& standing) {
  window.now = standing;
  window.next = {{standing.frame}, standing.state};
}

void Model::managerChanged() {
  for (auto& window : windows) {
    leftToManager(window);
    // The program may take a list of windows that is empty for a moment to mean that all are closed.
    window.memory.mayBeEmpty = true;
  }
}

void Model::displaysChanged(std::vector<Display> to) {
  displays = std::move(to);
  for (auto& window : windows) leftToManager(window);
}

void Model::programRestarted() {
  for (auto& window : windows) window.memory = {};
}

const Display& Model::displayOf(const Rect& frame) const {
  const Display* best = nullptr;
  double most = 0;
  for (const auto& display : displays) {
    const double share = frame.overlapFraction(display.frame);
    if (share <= most) continue;
    best = &display;
    most = share;
  }
  if (best != nullptr) return *best;
  return *std::ranges::find(displays, true, &Display::isPrimary);
}

std::vector<Display> Model::inOrder() const {
  auto ordered = displays;
  std::ranges::sort(ordered, {}, [](const Display& each) { return std::tuple(each.frame.x, each.frame.y); });
  return ordered;
}

bool Model::isInside(const Rect& frame) const {
  return std::ranges::any_of(displays, [&](const Display& each) { return contains(each.area(), frame); });
}

bool Model::isWithinReach(const ModelWindow& window) const {
  const auto covers = [&](const ModelWindow& other) {
    return other.now.state == State::fullScreen && window.now.frame.overlapFraction(other.now.frame) > 0;
  };
  return window.isNormal() && std::ranges::none_of(windows, covers);
}

std::string Model::signature() const {
  std::string key;
  for (const auto& [output, frame, isPrimary, panel] : inOrder()) {
    key += (key.empty() ? "" : "|") + wholePart(frame.width) + "x" + wholePart(frame.height) + "@" +
           wholePart(frame.x) + "," + wholePart(frame.y);
  }
  return key;
}

void Model::move(ModelWindow& window, const Rect& to) const {
  window.now = {to, State::normal};
  window.next = {{}, State::normal};
  if (isInside(to)) window.next.frames = {to};
  // metacity takes an undecorated window of a display's size for one that fills the screen.
  const bool fillsDisplay = std::ranges::find(displays, to, &Display::frame) != displays.end();
  if (!window.hasTitleBar && fillsDisplay) window.next.state.reset();
}

void Model::restore(ModelWindow& window) const {
  const Memory memory = std::exchange(window.memory, {});
  if (memory.isUnknown) return leftToManager(window);
  if (memory.possible.empty()) return;
  const Rect area = displayOf(window.now.frame).area();
  std::vector<Standing> ends;
  if (memory.mayBeEmpty) ends.push_back(window.now);
  for (const auto& [frame, state] : memory.possible) {
    // A state comes back with the frame it gave; out of reach, only the size does.
    ends.push_back(isInReach(frame) ? Standing{frame, state} : Standing{frame.moved(area)});
  }
  Expected next{{}, ends.front().state};
  bool isForeseeable = true;
  for (const auto& [frame, state] : ends) {
    next.frames.push_back(frame);
    if (state != ends.front().state) next.state.reset();
    // What a manager fills depends on the panels of the moment.
    isForeseeable = isForeseeable && state == State::normal && isInside(frame);
  }
  if (!isForeseeable) next.frames.clear();
  window.next = std::move(next);
  if (window.next.isCertain()) window.now = {window.next.frames.front(), *window.next.state};
}

void Model::moveToNeighbour(ModelWindow& window, bool isNext) const {
  const auto ordered = inOrder();
  if (ordered.size() < 2) return;
  const Display& here = displayOf(window.now.frame);
  const auto index = static_cast<std::size_t>(std::ranges::find(ordered, here) - ordered.begin());
  const Display& there = ordered[(index + (isNext ? 1 : ordered.size() - 1)) % ordered.size()];
  window.memory.remember(window.now);
  move(window, NormalizedRect::of(window.now.frame, here.area()).rect(there.area()));
}

bool Model::isInReach(const Rect& frame) const {
  const Rect strip{frame.x, frame.y, frame.width, std::min(frame.height, titleStrip)};
  return std::ranges::any_of(displays,
                             [&](const Display& each) { return strip.overlapFraction(each.area()) > 0.5; });
}

}  // namespace tilwin::desktop::soak
