#include "core/snap/SnapController.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/NormalizedRect.h"

namespace tilwin {
namespace {

constexpr double inPlaceTolerance = 1;
constexpr double cycleTolerance = 2;
constexpr double titleStripHeight = 40;

using Cycle = std::array<SnapAction, 3>;
constexpr std::array<Cycle, 2> cycles{{
    {SnapAction::leftHalf, SnapAction::leftTwoThirds, SnapAction::leftThird},
    {SnapAction::rightHalf, SnapAction::rightTwoThirds, SnapAction::rightThird},
}};

/// Whether enough of the top of the window, where its title bar is, would be visible to grab it.
bool isReachable(const Rect& frame, const std::vector<DisplayInfo>& displays) {
  const Rect strip{frame.x, frame.y, frame.width, std::min(frame.height, titleStripHeight)};
  return std::any_of(displays.begin(), displays.end(), [&](const DisplayInfo& display) {
    return strip.overlapFraction(display.visibleFrame) > 0.5;
  });
}

}  // namespace

/// The input of one action.
struct SnapController::Scene {
  WindowProvider& provider;
  const WindowInfo& window;
  const std::vector<DisplayInfo>& displays;
  const DisplayInfo& display;  ///< the one that covers most of the window
};

struct SnapController::FocusedPlace {
  std::shared_ptr<WindowProvider> provider;
  WindowInfo window;
  /// The rectangle that areas are fractions of: the visible frame without the margin. `gap` is not used.
  Rect inner;
};

SnapController::SnapController(std::weak_ptr<WindowProvider> provider) : provider_(std::move(provider)) {}

bool SnapController::perform(SnapAction action) {
  const auto provider = provider_.lock();
  if (!provider) return false;
  const auto window = provider->focusedWindow();
  if (!window || !act(action, *provider, *window)) return false;
  report(window->id, action);
  return true;
}

bool SnapController::act(SnapAction action, WindowProvider& provider, const WindowInfo& window) {
  if (ignoredBundleIDs.contains(window.bundleID)) return false;
  const auto displays = provider.displays();
  const DisplayInfo* home = display(window.frame, displays);
  if (home == nullptr) return false;
  const Scene scene{provider, window, displays, *home};
  switch (action) {
    case SnapAction::nextDisplay:
    case SnapAction::previousDisplay:
      return moveToNeighbour(action, scene);
    case SnapAction::restore:
      return restore(scene);
    default:
      return place(action, scene);
  }
}

bool SnapController::moveToNeighbour(SnapAction action, const Scene& scene) {
  const auto ordered = DisplayOrder::sorted(scene.displays);
  if (ordered.size() < 2) return false;
  const auto here = std::find_if(ordered.begin(), ordered.end(),
                                 [&](const DisplayInfo& display) { return display.id == scene.display.id; });
  if (here == ordered.end()) return false;
  const auto index = static_cast<std::size_t>(here - ordered.begin());
  const std::size_t step = action == SnapAction::nextDisplay ? 1 : ordered.size() - 1;
  const DisplayInfo& target = ordered[(index + step) % ordered.size()];
  const auto share = NormalizedRect::of(scene.window.frame, scene.display.visibleFrame);
  remember(scene.window);
  return scene.provider.setFrame(scene.window.id, share.rect(target.visibleFrame));
}

bool SnapController::restore(const Scene& scene) {
  const auto entry = previous_.extract(scene.window.id);
  if (entry.empty()) return false;
  const Rect& saved = entry.mapped();
  const bool isInReach = isReachable(saved, scene.displays);
  return scene.provider.restoreFrame(scene.window.id,
                                     isInReach ? saved : saved.moved(scene.display.visibleFrame));
}

bool SnapController::place(SnapAction action, const Scene& scene) {
  const Rect& current = scene.window.frame;
  const Rect& area = scene.display.visibleFrame;
  if (cycleWidths) action = cycled(action, current, area, outer, gap).value_or(action);
  const auto target = SnapActions::frame(action, current, area, outer, gap);
  if (!target) return false;
  return moveUnlessThere(scene.provider, scene.window, *target);
}

bool SnapController::moveUnlessThere(WindowProvider& provider, const WindowInfo& window, const Rect& target) {
  if (window.frame.isClose(target, inPlaceTolerance)) return true;
  remember(window);
  return provider.setFrame(window.id, target);
}

bool SnapController::snap(std::int64_t windowID, SnapAction to, const DisplayInfo& on,
                          const Rect& currentFrame) {
  const auto provider = provider_.lock();
  if (!provider) return false;
  const auto target = SnapActions::frame(to, currentFrame, on.visibleFrame, outer, gap);
  if (!target) return false;
  previous_.try_emplace(windowID, currentFrame);
  if (!provider->setFrame(windowID, *target)) return false;
  report(windowID, to);
  return true;
}

void SnapController::report(std::int64_t windowID, SnapAction action) const {
  // A copy, as the callback may assign `onEvent` while it runs.
  if (const auto receiver = onEvent) receiver(windowID, action);
}

std::optional<SnapController::FocusedPlace> SnapController::focusedPlace() const {
  auto provider = provider_.lock();
  if (!provider) return std::nullopt;
  auto window = provider->focusedWindow();
  if (!window) return std::nullopt;
  const auto displays = provider->displays();
  const DisplayInfo* home = display(window->frame, displays);
  if (home == nullptr) return std::nullopt;
  return FocusedPlace{std::move(provider), *std::move(window), home->visibleFrame.inset(outer)};
}

bool SnapController::snap(const CustomArea& to) {
  const auto place = focusedPlace();
  if (!place || ignoredBundleIDs.contains(place->window.bundleID)) return false;
  const Rect target = CustomArea::clamped(to.rect).rect(place->inner);
  if (!moveUnlessThere(*place->provider, place->window, target)) return false;
  if (const auto receiver = onArea) receiver(place->window.id, to);
  return true;
}

std::optional<CustomArea> SnapController::captureFocusedWindow(std::string_view named) const {
  const auto place = focusedPlace();
  if (!place) return std::nullopt;
  CustomArea area = CustomArea::starter(named);
  area.rect = CustomArea::clamped(NormalizedRect::of(place->window.frame, place->inner));
  return area;
}

LayoutPlan SnapController::apply(const Layout& layout) {
  const auto provider = provider_.lock();
  if (!provider) return {{}, layout.slots};
  auto windows = provider->allWindows();
  std::erase_if(windows,
                [&](const WindowInfo& window) { return ignoredBundleIDs.contains(window.bundleID); });
  auto plan = LayoutPlanner::plan(layout, windows, provider->displays(), outer, gap, false);
  for (const Placement& placement : plan.placements) {
    const auto window = std::find_if(windows.begin(), windows.end(), [&](const WindowInfo& candidate) {
      return candidate.id == placement.windowID;
    });
    if (window != windows.end()) remember(*window);
    provider->setFrame(placement.windowID, placement.frame);
  }
  return plan;
}

void SnapController::remember(const WindowInfo& window) { previous_.try_emplace(window.id, window.frame); }

void SnapController::forget(std::int64_t windowID) { previous_.erase(windowID); }

std::optional<Rect> SnapController::originalFrame(std::int64_t windowID) const {
  const auto entry = previous_.find(windowID);
  if (entry == previous_.end()) return std::nullopt;
  return entry->second;
}

const DisplayInfo* SnapController::display(const Rect& containing, const std::vector<DisplayInfo>& displays) {
  return DisplayInfo::covering(containing, displays);
}

std::optional<SnapAction> SnapController::cycled(SnapAction action, const Rect& current, const Rect& area,
                                                 double outer, double gap) {
  const auto cycle = std::find_if(cycles.begin(), cycles.end(), [&](const Cycle& members) {
    return std::find(members.begin(), members.end(), action) != members.end();
  });
  if (cycle == cycles.end()) return std::nullopt;
  for (std::size_t index = 0; index < cycle->size(); ++index) {
    const auto frame = SnapActions::frame((*cycle)[index], current, area, outer, gap);
    if (frame && frame->isClose(current, cycleTolerance)) return (*cycle)[(index + 1) % cycle->size()];
  }
  return std::nullopt;
}

}  // namespace tilwin
