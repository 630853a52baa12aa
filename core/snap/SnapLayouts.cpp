#include <algorithm>

#include "core/layouts/LayoutPlanner.h"
#include "core/snap/SnapController.h"

namespace tilwin {

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

}  // namespace tilwin
