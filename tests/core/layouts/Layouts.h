#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "core/layouts/Layout.h"
#include "core/layouts/LayoutPlanner.h"
#include "platform/simulated/DisplayText.h"

/// Shared values and helpers of the layout tests.

namespace tilwin {

inline std::vector<DisplayInfo> displaysAt(std::string_view text) {
  return std::get<std::vector<DisplayInfo>>(parseDisplays(text));
}

/// A fixed date plus this many seconds.
inline Date at(int second) {
  using namespace std::chrono;
  return sys_days(2026y / March / 1) + hours(9) + seconds(second);
}

inline constexpr NormalizedRect leftPart{0, 0, 0.4, 1};

inline LayoutSlot slotFor(std::string bundleID, SlotTarget target = leftPart, std::int64_t displayIndex = 0) {
  return {.bundleID = std::move(bundleID), .displayIndex = displayIndex, .target = target};
}

inline LayoutSlot slotNamed(std::string appName) {
  return {.appName = std::move(appName), .target = leftPart};
}

inline LayoutSlot slotTitled(std::string bundleID, std::string titleContains) {
  return {.bundleID = std::move(bundleID), .titleContains = std::move(titleContains), .target = leftPart};
}

inline Layout layoutOf(std::vector<LayoutSlot> slots) {
  return {.id = Uuid::random(), .name = "Desk", .slots = std::move(slots), .updatedAt = at(0)};
}

inline WindowInfo windowOf(std::string bundleID, std::int64_t id, std::int64_t zOrder = 0) {
  return {.id = id, .bundleID = std::move(bundleID), .frame = {100, 100, 800, 600}, .zOrder = zOrder};
}

inline std::vector<std::int64_t> windowIDs(const LayoutPlan& plan) {
  std::vector<std::int64_t> ids;
  for (const Placement& placement : plan.placements) ids.push_back(placement.windowID);
  return ids;
}

}  // namespace tilwin
