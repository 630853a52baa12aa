#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>

#include "core/geometry/DisplayInfo.h"
#include "core/layouts/LayoutCoding.h"
#include "core/layouts/LayoutStore.h"
#include "tests/core/Arbitrary.h"
#include "tests/core/layouts/Layouts.h"

namespace tilwin {
namespace {

std::string oneOf(const std::vector<std::string>& texts) { return *rc::gen::elementOf(texts); }

/// Few enough that slots often ask for the same, and for what is there.
const std::vector<std::string> applications{"mail", "MAIL", "notes", "Écran", "e\u0301CRAN", ""};
const std::vector<std::string> titles{"Inbox", "inbox 2", "Résumé", "resume", ""};

std::optional<std::string> maybe(const std::vector<std::string>& texts) {
  return *rc::gen::arbitrary<bool>() ? std::optional(oneOf(texts)) : std::nullopt;
}

SlotTarget anyTarget() {
  if (*rc::gen::arbitrary<bool>()) return *SnapActions::region(arbitrary::gridAction());
  return NormalizedRect{arbitrary::share(), arbitrary::share(), arbitrary::share(), arbitrary::share()};
}

Layout anyLayout(int mostSlots) {
  Layout layout = layoutOf({});
  for (int count = arbitrary::whole(0, mostSlots); count > 0; --count) {
    layout.slots.push_back(
        {maybe(applications), maybe(applications), maybe(titles), arbitrary::whole(-2, 5), anyTarget()});
  }
  return layout;
}

std::vector<DisplayInfo> anyDisplays() {
  std::vector<DisplayInfo> displays;
  for (int id = 1, count = arbitrary::whole(1, 4); id <= count; ++id) {
    const Rect frame = arbitrary::area();
    displays.push_back({static_cast<std::uint32_t>(id), frame, frame, id == 1});
  }
  return displays;
}

std::vector<WindowInfo> anyWindows(const std::vector<DisplayInfo>& displays) {
  std::vector<WindowInfo> windows;
  for (int id = 1, count = arbitrary::whole(0, 12); id <= count; ++id) {
    windows.push_back({id, oneOf(applications), oneOf(applications), oneOf(titles),
                       arbitrary::nearby(displays.front().frame), *rc::gen::arbitrary<bool>(),
                       arbitrary::whole(0, 5)});
  }
  return windows;
}

RC_GTEST_PROP(LayoutProperties, NoWindowIsPlacedTwiceAndEverySlotIsPlacedOrReportedInOrder, ()) {
  const auto displays = anyDisplays();
  const auto windows = anyWindows(displays);
  const Layout layout = anyLayout(12);
  const auto plan = LayoutPlanner::plan(layout, windows, displays, arbitrary::whole(0, 64),
                                        arbitrary::whole(0, 64), *rc::gen::arbitrary<bool>());
  const auto ids = windowIDs(plan);
  RC_ASSERT(std::set<std::int64_t>(ids.begin(), ids.end()).size() == ids.size());
  RC_ASSERT(plan.placements.size() + plan.unmatched.size() == layout.slots.size());
  // What is unmatched stands in the layout in the same order.
  auto place = layout.slots.begin();
  for (const LayoutSlot& slot : plan.unmatched) {
    place = std::find(place, layout.slots.end(), slot);
    RC_ASSERT(place != layout.slots.end());
    ++place;
  }
}

/// Planning as one would write it down, looking at every window for every slot.
std::optional<std::int64_t> plainChoice(const LayoutSlot& slot, const std::vector<WindowInfo>& frontToBack,
                                        const std::set<std::int64_t>& used) {
  for (const WindowInfo& window : frontToBack) {
    const auto isAsked = [&](const LayoutSlot& by) {
      return LayoutPlanner::plan(layoutOf({by}), {window}, displaysAt("800x600+0+0"), 0, 0, true)
          .unmatched.empty();
    };
    if (!used.contains(window.id) && isAsked(slot)) return window.id;
  }
  return std::nullopt;
}

RC_GTEST_PROP(LayoutProperties, TheWindowChosenIsTheFrontmostThatFitsAloneAndIsLeft, ()) {
  const auto displays = anyDisplays();
  auto windows = anyWindows(displays);
  const Layout layout = anyLayout(8);
  const auto plan = LayoutPlanner::plan(layout, windows, displays, 0, 0, true);
  std::stable_sort(windows.begin(), windows.end(),
                   [](const auto& first, const auto& second) { return first.zOrder < second.zOrder; });
  std::set<std::int64_t> used;
  std::vector<std::int64_t> expected;
  for (const LayoutSlot& slot : layout.slots) {
    if (const auto id = plainChoice(slot, windows, used)) {
      used.insert(*id);
      expected.push_back(*id);
    }
  }
  RC_ASSERT(windowIDs(plan) == expected);
}

RC_GTEST_PROP(LayoutProperties, ApplyingWhatWasCapturedOnUnchangedDisplaysMovesNoWindowByMoreThanAPoint, ()) {
  std::vector<DisplayInfo> displays;
  std::vector<WindowInfo> windows;
  for (int id = 1, x = 0; id <= arbitrary::whole(1, 3); ++id) {
    Rect frame = arbitrary::area();
    frame.x = x;
    x += static_cast<int>(frame.width);
    displays.push_back({static_cast<std::uint32_t>(id), frame, frame, id == 1});
  }
  for (int id = 1; id <= arbitrary::whole(1, 8); ++id) {
    const auto& display = *rc::gen::elementOf(displays);
    windows.push_back({.id = id,
                       .bundleID = oneOf({"mail", "notes"}),
                       .frame = arbitrary::inside(display.frame),
                       .zOrder = arbitrary::whole(0, 9)});
  }
  const Layout layout = LayoutPlanner::snapshot(windows, displays, "Desk", false, at(0));
  const auto plan = LayoutPlanner::plan(layout, windows, displays, 8, 8, false);
  RC_ASSERT(plan.placements.size() == windows.size());
  for (const Placement& placement : plan.placements) {
    const auto window = std::find_if(windows.begin(), windows.end(),
                                     [&](const auto& each) { return each.id == placement.windowID; });
    RC_ASSERT(window->frame.isClose(placement.frame, 1));
  }
}

RC_GTEST_PROP(LayoutProperties, AtMostSixAutomaticLayoutsStayAndAlwaysTheNewest, ()) {
  LayoutStore store;
  const int most = arbitrary::whole(1, 30);
  for (int count = 0; count < most; ++count) {
    Layout layout = anyLayout(0);
    layout.signature = DisplaySignature(displaysAt(std::to_string(arbitrary::whole(800, 812)) + "x600+0+0"));
    layout.updatedAt = at(arbitrary::whole(0, 1000));
    store.setAutomatic(layout);
    const auto newest = std::max_element(
        store.layouts.begin(), store.layouts.end(),
        [](const auto& first, const auto& second) { return first.updatedAt < second.updatedAt; });
    RC_ASSERT(store.layouts.size() <= LayoutStore::maximumAutomatic);
    RC_ASSERT(newest->updatedAt >= layout.updatedAt);
  }
}

RC_GTEST_PROP(LayoutProperties, AStoreIsTheSameAfterItWasWrittenAndRead, ()) {
  LayoutStore store;
  for (int count = arbitrary::whole(0, 4); count > 0; --count) {
    Layout layout = anyLayout(5);
    layout.name = oneOf(titles);
    layout.isAutomatic = *rc::gen::arbitrary<bool>();
    if (*rc::gen::arbitrary<bool>()) layout.signature = DisplaySignature(anyDisplays());
    store.layouts.push_back(layout);
  }
  const auto text = std::get<std::string>(encodePrettyJson(store));
  RC_ASSERT(std::get<LayoutStore>(decodeJson<LayoutStore>(text)) == store);
}

}  // namespace
}  // namespace tilwin
