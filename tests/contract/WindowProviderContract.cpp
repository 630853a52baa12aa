#include <algorithm>
#include <cmath>
#include <set>

#include "tests/contract/World.h"

namespace tilwin::contract {
World::Window WindowProviderContract::openFocused(const NewWindow& window) {
  const auto opened = world->open(window);
  world->focus(opened);
  EXPECT_TRUE(world->comesTo(std::optional(window.title), [&] { return focusedTitle(); }))
      << "the title of the focused window";
  return opened;
}

std::optional<std::string> WindowProviderContract::focusedTitle() {
  const auto window = provider->focusedWindow();
  return window ? std::optional(window->title) : std::nullopt;
}

WindowInfo WindowProviderContract::focused() {
  const auto window = provider->focusedWindow();
  EXPECT_TRUE(window.has_value()) << "no window has the focus";
  return window.value_or(WindowInfo{});
}

std::optional<WindowInfo> WindowProviderContract::listed(const std::string& title) {
  const auto windows = provider->allWindows();
  const auto found = std::find_if(windows.begin(), windows.end(),
                                  [&](const WindowInfo& window) { return window.title == title; });
  if (found == windows.end()) return std::nullopt;
  return *found;
}

testing::AssertionResult WindowProviderContract::isNear(const std::optional<Rect>& seen, const Rect& wanted) {
  if (seen && seen->isClose(wanted, borderSlack)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "wanted " << wanted << ", but saw " << testing::PrintToString(seen);
}

testing::AssertionResult WindowProviderContract::comesNear(World::Window window, const Rect& wanted) {
  return world->settled([&] { return isNear(world->standing(window), wanted); });
}

testing::AssertionResult ReportedFrameContract::isNearInSteps(const std::optional<Rect>& seen,
                                                              const Rect& asked) {
  if (seen && std::abs(seen->x - asked.x) <= borderSlack &&
      std::abs(seen->width - asked.width) <= widthStep + borderSlack) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << "wanted about " << asked << ", but saw "
                                     << testing::PrintToString(seen);
}

void WindowProviderContract::moveFocusedTo(World::Window window, const Rect& frame) {
  ASSERT_TRUE(provider->setFrame(focused().id, frame));
  ASSERT_TRUE(comesNear(window, frame));
}

Rect WindowProviderContract::place(double x, double y, double width, double height) {
  const Rect area = provider->displays().at(0).visibleFrame;
  return Rect{area.x + x * area.width, area.y + y * area.height, width * area.width, height * area.height}
      .rounded();
}

TEST_P(WindowProviderContract, DisplaysListThePrimaryOneFirstAndNoOtherIsPrimary) {
  const auto displays = provider->displays();
  ASSERT_FALSE(displays.empty());
  EXPECT_TRUE(displays.front().isPrimary);
  EXPECT_EQ(std::count_if(displays.begin(), displays.end(), [](const auto& each) { return each.isPrimary; }),
            1);
}

TEST_P(WindowProviderContract, DisplaysHaveDifferentNumbersAndVisibleFramesInsideTheirFrames) {
  std::set<std::uint32_t> numbers;
  for (const DisplayInfo& display : provider->displays()) {
    EXPECT_TRUE(numbers.insert(display.id).second);
    EXPECT_GT(display.visibleFrame.width, 0);
    EXPECT_GT(display.visibleFrame.height, 0);
    EXPECT_NEAR(display.visibleFrame.overlapFraction(display.frame), 1, 1e-9);
  }
}

TEST_P(WindowProviderContract, NoWindowHasTheFocusOnAnEmptyDesktop) {
  EXPECT_TRUE(world->comesTo(std::optional<WindowInfo>(), [&] { return provider->focusedWindow(); }));
  EXPECT_EQ(provider->allWindows(), std::vector<WindowInfo>{});
}

TEST_P(WindowProviderContract, TheFocusedWindowIsDescribed) {
  const auto window = openFocused({.bundleID = "ContractReader", .title = "A page, größer"});
  const WindowInfo info = focused();
  EXPECT_EQ(info.bundleID, "ContractReader");
  EXPECT_FALSE(info.appName.empty());
  EXPECT_EQ(info.title, "A page, größer");
  EXPECT_FALSE(info.isMinimized);
  EXPECT_EQ(info.zOrder, 0);
  const auto standing = world->standing(window);
  ASSERT_TRUE(standing.has_value());
  EXPECT_TRUE(isNear(info.frame, *standing));
}

TEST_P(WindowProviderContract, TheFocusedWindowFollowsTheFocus) {
  const auto first = openFocused({.title = "first"});
  const auto firstID = focused().id;
  openFocused({.title = "second"});
  EXPECT_NE(focused().id, firstID);
  world->focus(first);
  EXPECT_TRUE(world->comesTo(std::optional<std::string>("first"), [&] { return focusedTitle(); }));
  EXPECT_EQ(focused().id, firstID);
}

TEST_P(WindowProviderContract, AClosedWindowHasTheFocusNoLonger) {
  const auto window = openFocused({.title = "short-lived"});
  world->close(window);
  EXPECT_TRUE(world->settle([&] { return focusedTitle() != "short-lived"; })) << "still focused";
}

TEST_P(WindowProviderContract, AllWindowsListsEveryStandardWindowOnce) {
  openFocused({.bundleID = "ContractReader", .title = "page"});
  openFocused({.bundleID = "ContractEditor", .title = "text"});
  EXPECT_TRUE(world->comesTo(std::size_t{2}, [&] { return provider->allWindows().size(); }));
  EXPECT_TRUE(listed("page").has_value());
  EXPECT_TRUE(listed("text").has_value());
}

TEST_P(WindowProviderContract, AllWindowsRanksTheFrontmostApplicationFirstAndCountsUpFromZero) {
  openFocused({.bundleID = "ContractAtlas", .title = "behind"});
  openFocused({.bundleID = "ContractZebra", .title = "in front"});
  ASSERT_TRUE(world->comesTo(std::size_t{2}, [&] { return provider->allWindows().size(); }));
  const auto windows = provider->allWindows();
  ASSERT_EQ(windows.size(), 2);
  EXPECT_EQ(windows.front().title, "in front");
  EXPECT_EQ(windows.front().zOrder, 0);
  EXPECT_EQ(windows.back().zOrder, 1);
}

TEST_P(WindowProviderContract, AllWindowsLeavesDialogsOut) {
  openFocused({.title = "document"});
  world->open({.title = "Save changes?", .isDialog = true});
  EXPECT_TRUE(world->comesTo(std::vector<std::string>{"document"}, [&] {
    std::vector<std::string> titles;
    for (const WindowInfo& window : provider->allWindows()) titles.push_back(window.title);
    return titles;
  }));
}

TEST_P(WindowProviderContract, AMinimizedWindowIsListedAsSuchAndHasNoFocus) {
  const auto window = openFocused({.title = "away"});
  world->minimize(window);
  EXPECT_TRUE(world->settled([&] {
    const auto found = listed("away");
    const auto focus = focusedTitle();
    if (found && found->isMinimized && focus != "away") return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "wanted it minimised and without the focus, but saw " << testing::PrintToString(found)
           << " and the focus on " << testing::PrintToString(focus);
  }));
}

}  // namespace tilwin::contract
