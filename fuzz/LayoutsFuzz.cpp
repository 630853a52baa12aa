// Any bytes as a layouts file: what can be read can be written and read back, and planned on any desktop.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/layouts/LayoutCoding.h"
#include "core/layouts/LayoutPlanner.h"
#include "fuzz/Require.h"

namespace tilwin {
namespace {

std::string written(const LayoutStore& store) {
  auto text = encodePrettyJson(store);
  require(std::holds_alternative<std::string>(text), "layouts that were read cannot be written");
  return std::get<std::string>(std::move(text));
}

/// Files keep whole seconds.
LayoutStore inWholeSeconds(LayoutStore store) {
  for (Layout& layout : store.layouts) {
    layout.updatedAt = std::chrono::floor<std::chrono::seconds>(layout.updatedAt);
  }
  return store;
}

void checkReadsBack(const LayoutStore& store) {
  const std::string text = written(store);
  const auto back = decodeJson<LayoutStore>(text);
  require(std::holds_alternative<LayoutStore>(back), "written layouts cannot be read");
  require(std::get<LayoutStore>(back) == inWholeSeconds(store), "layouts change by being written and read");
  require(written(std::get<LayoutStore>(back)) == text, "the same layouts are written in two ways");
}

/// Some windows that the slots ask for, with one that is minimized and one that nothing asks for.
std::vector<WindowInfo> windowsFor(const Layout& layout) {
  std::vector<WindowInfo> windows{{.id = 1, .bundleID = "org.example.other", .frame = {0, 0, 400, 300}}};
  for (const LayoutSlot& slot : layout.slots) {
    const auto number = static_cast<std::int64_t>(windows.size());
    if (number > 6) break;
    windows.push_back({.id = number + 1,
                       .bundleID = slot.bundleID.value_or(""),
                       .appName = slot.appName.value_or(""),
                       .title = "About " + slot.titleContains.value_or(""),
                       .frame = {10.0 * static_cast<double>(number), 20, 500, 400},
                       .isMinimized = number == 3,
                       .zOrder = -number});
  }
  return windows;
}

std::vector<DisplayInfo> someDisplays() {
  return {{.id = 1, .frame = {0, 0, 1440, 900}, .visibleFrame = {0, 25, 1440, 875}},
          {.id = 2, .frame = {-1920, -180, 1920, 1080}, .visibleFrame = {-1920, -180, 1920, 1040}}};
}

/// Where a region's grid has no cells, there is no place to name.
bool hasPlaces(const Layout& layout) {
  return std::all_of(layout.slots.begin(), layout.slots.end(), [](const LayoutSlot& slot) {
    const auto* region = std::get_if<GridRegion>(&slot.target);
    return region == nullptr || (region->columns >= 1 && region->rows >= 1);
  });
}

bool isFinite(const Rect& frame) {
  return std::isfinite(frame.x) && std::isfinite(frame.y) && std::isfinite(frame.width) &&
         std::isfinite(frame.height);
}

void checkPlan(const Layout& layout, const std::vector<DisplayInfo>& displays, bool includeMinimized) {
  const auto windows = windowsFor(layout);
  const auto plan = LayoutPlanner::plan(layout, windows, displays, 12, 8, includeMinimized);
  require(plan.placements.size() + plan.unmatched.size() == layout.slots.size(),
          "a slot is neither placed nor unmatched, or is both");
  require(!displays.empty() || plan.placements.empty(), "a window is placed on no display");
  std::set<std::int64_t> placed;
  for (const Placement& placement : plan.placements) {
    require(placed.insert(placement.windowID).second, "a window is placed twice");
    require(isFinite(placement.frame) || !hasPlaces(layout), "a window is placed nowhere");
    require(std::any_of(windows.begin(), windows.end(),
                        [&](const auto& window) {
                          return window.id == placement.windowID && (includeMinimized || !window.isMinimized);
                        }),
            "a window is placed that is not open");
  }
}

}  // namespace
}  // namespace tilwin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const auto decoded = tilwin::decodeJson<tilwin::LayoutStore>(text);
  const auto* store = std::get_if<tilwin::LayoutStore>(&decoded);
  if (store == nullptr) return 0;
  tilwin::checkReadsBack(*store);
  for (const auto& layout : store->layouts) {
    tilwin::checkPlan(layout, tilwin::someDisplays(), false);
    tilwin::checkPlan(layout, tilwin::someDisplays(), true);
    tilwin::checkPlan(layout, {}, true);
  }
  return 0;
}
