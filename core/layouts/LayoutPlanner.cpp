#include "core/layouts/LayoutPlanner.h"

#include <algorithm>
#include <utility>

#include "core/geometry/DisplayInfo.h"
#include "core/layouts/WindowMatcher.h"

namespace tilwin {
namespace {

struct TargetFrame {
  const Rect& visibleFrame;
  double outer;
  double gap;

  Rect operator()(const GridRegion& region) const { return region.frame(visibleFrame, outer, gap); }
  Rect operator()(const NormalizedRect& fractions) const { return fractions.rect(visibleFrame); }
};

std::int64_t lastIndex(const std::vector<DisplayInfo>& displays) {
  return static_cast<std::int64_t>(displays.size()) - 1;
}

std::size_t indexOfMostCovered(const std::vector<DisplayInfo>& ordered, const Rect& frame) {
  const auto most = std::max_element(
      ordered.begin(), ordered.end(), [&](const DisplayInfo& first, const DisplayInfo& second) {
        return frame.overlapFraction(first.frame) < frame.overlapFraction(second.frame);
      });
  return static_cast<std::size_t>(most - ordered.begin());
}

LayoutSlot captured(const WindowInfo& window, const std::vector<DisplayInfo>& ordered) {
  const std::size_t index = indexOfMostCovered(ordered, window.frame);
  LayoutSlot slot;
  slot.bundleID = window.bundleID;
  slot.appName = window.appName;
  slot.displayIndex = static_cast<std::int64_t>(index);
  slot.target = NormalizedRect::of(window.frame, ordered[index].visibleFrame);
  return slot;
}

}  // namespace

LayoutPlan LayoutPlanner::plan(const Layout& layout, const std::vector<WindowInfo>& windows,
                               const std::vector<DisplayInfo>& displays, double outer, double gap,
                               bool includeMinimized) {
  if (displays.empty()) return {{}, layout.slots};
  const auto ordered = DisplayOrder::sorted(displays);
  WindowMatcher matcher(windows, includeMinimized);
  LayoutPlan plan;
  for (const LayoutSlot& slot : layout.slots) {
    const WindowInfo* window = matcher.take(slot);
    if (window == nullptr) {
      plan.unmatched.push_back(slot);
      continue;
    }
    const auto index = std::clamp<std::int64_t>(slot.displayIndex, 0, lastIndex(ordered));
    const DisplayInfo& display = ordered[static_cast<std::size_t>(index)];
    const Rect frame = std::visit(TargetFrame{display.visibleFrame, outer, gap}, slot.target);
    plan.placements.push_back({window->id, frame, display.id});
  }
  return plan;
}

Layout LayoutPlanner::snapshot(const std::vector<WindowInfo>& windows,
                               const std::vector<DisplayInfo>& displays, std::string name, bool automatic,
                               Date now) {
  Layout layout;
  layout.id = Uuid::random();
  layout.name = std::move(name);
  layout.signature = DisplaySignature(displays);
  layout.isAutomatic = automatic;
  layout.updatedAt = now;
  if (displays.empty()) return layout;
  const auto ordered = DisplayOrder::sorted(displays);
  std::vector<const WindowInfo*> frontToBack;
  for (const WindowInfo& window : windows) {
    if (!window.isMinimized && !window.bundleID.empty()) frontToBack.push_back(&window);
  }
  std::stable_sort(
      frontToBack.begin(), frontToBack.end(),
      [](const WindowInfo* first, const WindowInfo* second) { return first->zOrder < second->zOrder; });
  for (const WindowInfo* window : frontToBack) layout.slots.push_back(captured(*window, ordered));
  return layout;
}

}  // namespace tilwin
