#include <algorithm>
#include <cmath>
#include <set>

#include "tests/contract/World.h"

namespace tilwin::contract {
namespace {

/// Borders may be drawn with a point more or less than they are said to have.
constexpr double borderSlack = 2;

std::optional<WindowInfo> titled(const std::vector<WindowInfo>& windows, const std::string& title) {
  const auto found = std::find_if(windows.begin(), windows.end(),
                                  [&](const WindowInfo& window) { return window.title == title; });
  if (found == windows.end()) return std::nullopt;
  return *found;
}

}  // namespace

World::Window WindowProviderContract::openFocused(const NewWindow& window) {
  const auto opened = world->open(window);
  world->focus(opened);
  EXPECT_TRUE(world->settle([&] { return hasFocus(window.title); }))
      << window.title << " never got the focus";
  return opened;
}

bool WindowProviderContract::hasFocus(const std::string& title) {
  const auto window = provider->focusedWindow();
  return window && window->title == title;
}

WindowInfo WindowProviderContract::focused() {
  const auto window = provider->focusedWindow();
  EXPECT_TRUE(window.has_value()) << "no window has the focus";
  return window.value_or(WindowInfo{});
}

void WindowProviderContract::moveFocusedTo(World::Window window, const Rect& frame) {
  ASSERT_TRUE(provider->setFrame(focused().id, frame));
  ASSERT_TRUE(world->settle([&] {
    const auto standing = world->standing(window);
    return standing && standing->isClose(frame, borderSlack);
  })) << "the window never arrived";
}

Rect WindowProviderContract::place(double x, double y, double width, double height) {
  const Rect area = provider->displays().front().visibleFrame;
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
  EXPECT_TRUE(world->settle([&] { return !provider->focusedWindow(); }));
  EXPECT_TRUE(provider->allWindows().empty());
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
  EXPECT_TRUE(info.frame.isClose(*standing, borderSlack));
}

TEST_P(WindowProviderContract, TheFocusedWindowFollowsTheFocus) {
  const auto first = openFocused({.title = "first"});
  const auto firstID = focused().id;
  openFocused({.title = "second"});
  EXPECT_NE(focused().id, firstID);
  world->focus(first);
  EXPECT_TRUE(world->settle([&] { return hasFocus("first"); }));
  EXPECT_EQ(focused().id, firstID);
}

TEST_P(WindowProviderContract, AClosedWindowHasTheFocusNoLonger) {
  const auto window = openFocused({.title = "short-lived"});
  world->close(window);
  EXPECT_TRUE(world->settle([&] { return !hasFocus("short-lived"); }));
}

TEST_P(WindowProviderContract, AllWindowsListsEveryStandardWindowOnce) {
  openFocused({.bundleID = "ContractReader", .title = "page"});
  openFocused({.bundleID = "ContractEditor", .title = "text"});
  EXPECT_TRUE(world->settle([&] { return provider->allWindows().size() == 2; }));
  const auto windows = provider->allWindows();
  EXPECT_TRUE(titled(windows, "page").has_value());
  EXPECT_TRUE(titled(windows, "text").has_value());
}

TEST_P(WindowProviderContract, AllWindowsRanksTheFrontmostApplicationFirstAndCountsUpFromZero) {
  openFocused({.bundleID = "ContractAtlas", .title = "behind"});
  openFocused({.bundleID = "ContractZebra", .title = "in front"});
  ASSERT_TRUE(world->settle([&] { return provider->allWindows().size() == 2; }));
  const auto windows = provider->allWindows();
  EXPECT_EQ(windows.front().title, "in front");
  EXPECT_EQ(windows.front().zOrder, 0);
  EXPECT_EQ(windows.back().zOrder, 1);
}

TEST_P(WindowProviderContract, AllWindowsLeavesDialogsOut) {
  openFocused({.title = "document"});
  world->open({.title = "Save changes?", .isDialog = true});
  EXPECT_TRUE(world->settle([&] { return provider->allWindows().size() == 1; }));
  EXPECT_EQ(provider->allWindows().front().title, "document");
}

TEST_P(WindowProviderContract, AMinimizedWindowIsListedAsSuchAndHasNoFocus) {
  const auto window = openFocused({.title = "away"});
  world->minimize(window);
  EXPECT_TRUE(world->settle([&] {
    const auto listed = titled(provider->allWindows(), "away");
    return listed && listed->isMinimized && !hasFocus("away");
  }));
}

TEST_P(WindowProviderContract, AMovedWindowStandsAtTheFrameAskedForAndIsReportedThere) {
  const auto window = openFocused({.title = "text"});
  const Rect target = place(0.5, 0, 0.5, 1);
  moveFocusedTo(window, target);
  EXPECT_EQ(focused().frame, target);
  const auto listed = titled(provider->allWindows(), "text");
  ASSERT_TRUE(listed.has_value());
  EXPECT_EQ(listed->frame, target);
}

TEST_P(WindowProviderContract, TheLastOfSeveralMovesInARowCounts) {
  const auto window = openFocused({.title = "text"});
  const auto id = focused().id;
  EXPECT_TRUE(provider->setFrame(id, place(0, 0, 0.5, 1)));
  EXPECT_TRUE(provider->setFrame(id, place(0.5, 0, 0.5, 0.5)));
  moveFocusedTo(window, place(0.25, 0.25, 0.5, 0.5));
  EXPECT_EQ(focused().frame, place(0.25, 0.25, 0.5, 0.5));
}

TEST_P(WindowProviderContract, AnIdStaysTheSameWhenItsWindowMovesAndIsListed) {
  const auto window = openFocused({.title = "text"});
  const auto id = focused().id;
  moveFocusedTo(window, place(0.1, 0.1, 0.4, 0.4));
  EXPECT_EQ(focused().id, id);
  const auto listed = titled(provider->allWindows(), "text");
  ASSERT_TRUE(listed.has_value());
  EXPECT_EQ(listed->id, id);
}

TEST_P(WindowProviderContract, AListedWindowCanBeMovedWithoutTheFocus) {
  const auto window = openFocused({.title = "behind"});
  openFocused({.title = "in front"});
  ASSERT_TRUE(world->settle([&] { return titled(provider->allWindows(), "behind").has_value(); }));
  const Rect target = place(0, 0, 0.5, 0.5);
  ASSERT_TRUE(provider->setFrame(titled(provider->allWindows(), "behind")->id, target));
  EXPECT_TRUE(world->settle([&] { return world->standing(window)->isClose(target, borderSlack); }));
}

TEST_P(WindowProviderContract, AWindowThatRoundsItsSizeIsReportedAtTheFrameAskedFor) {
  const auto window = openFocused({.title = "shell", .widthStep = 37, .heightStep = 41});
  const Rect target = place(0.1, 0.1, 0.6, 0.6);
  ASSERT_TRUE(provider->setFrame(focused().id, target));
  EXPECT_TRUE(world->settle([&] {
    const Rect standing = *world->standing(window);
    return std::abs(standing.x - target.x) <= borderSlack &&
           std::abs(standing.width - target.width) <= 37 + borderSlack && focused().frame == target;
  }));
  EXPECT_NE(*world->standing(window), target) << "the steps happen to fit this frame and show nothing";
}

TEST_P(WindowProviderContract, AWindowThatRefusesToShrinkIsReportedAtTheFrameAskedFor) {
  const double least = place(0, 0, 0.4, 0.4).width;
  const auto window = openFocused({.title = "wide", .frame = place(0, 0, 0.5, 0.5), .minimumWidth = least});
  const Rect target = place(0.1, 0.1, 0.2, 0.4);
  ASSERT_TRUE(provider->setFrame(focused().id, target));
  EXPECT_TRUE(world->settle([&] {
    return std::abs(world->standing(window)->y - target.y) <= borderSlack && focused().frame == target;
  }));
  EXPECT_GE(world->standing(window)->width, least);
}

TEST_P(WindowProviderContract, AWindowMovedByHandIsReportedWhereItStands) {
  const auto window = openFocused({.title = "shell", .widthStep = 37, .heightStep = 41});
  const Rect asked = place(0.1, 0.1, 0.6, 0.6);
  ASSERT_TRUE(provider->setFrame(focused().id, asked));
  ASSERT_TRUE(world->settle([&] { return focused().frame == asked; }));
  const Rect byHand = place(0.2, 0.3, 0.4, 0.4);
  world->moveByHand(window, byHand);
  EXPECT_TRUE(world->settle([&] {
    const Rect standing = *world->standing(window);
    return std::abs(standing.x - byHand.x) <= borderSlack && focused().frame.isClose(standing, borderSlack);
  }));
}

TEST_P(WindowProviderContract, AMaximizedWindowIsReleasedAndThenMoved) {
  const auto window = openFocused({.title = "text"});
  world->maximize(window);
  ASSERT_TRUE(world->settle([&] { return world->isMaximized(window); }));
  moveFocusedTo(window, place(0, 0, 0.5, 1));
  EXPECT_FALSE(world->isMaximized(window));
  EXPECT_EQ(focused().frame, place(0, 0, 0.5, 1));
}

TEST_P(WindowProviderContract, AWindowThatClosesBetweenTheQueryAndTheMoveIsNotMoved) {
  const auto window = openFocused({.title = "gone"});
  const auto id = focused().id;
  world->close(window);
  ASSERT_TRUE(world->settle([&] { return !world->standing(window); }));
  EXPECT_TRUE(world->settle([&] { return !provider->setFrame(id, place(0, 0, 0.5, 0.5)); }));
}

TEST_P(WindowProviderContract, AWindowThatClosesWithoutWarningHarmsNothing) {
  const auto other = openFocused({.title = "other"});
  const auto window = openFocused({.title = "gone"});
  const auto id = focused().id;
  world->close(window);
  provider->setFrame(id, place(0, 0, 0.5, 0.5));
  world->focus(other);
  ASSERT_TRUE(world->settle([&] { return hasFocus("other"); }));
  moveFocusedTo(other, place(0.5, 0, 0.5, 0.5));
}

TEST_P(WindowProviderContract, AnIdThatWasNeverIssuedIsNotMoved) {
  EXPECT_FALSE(provider->setFrame(-1, place(0, 0, 0.5, 0.5)));
  EXPECT_FALSE(provider->setFrame(987654321012345, place(0, 0, 0.5, 0.5)));
}

TEST_P(WindowProviderContract, ListingTheWindowsForgetsTheIdsOfThoseThatAreGone) {
  const auto window = openFocused({.title = "gone"});
  const auto id = focused().id;
  world->close(window);
  ASSERT_TRUE(world->settle([&] { return !titled(provider->allWindows(), "gone"); }));
  EXPECT_FALSE(provider->setFrame(id, place(0, 0, 0.5, 0.5)));
}

}  // namespace tilwin::contract
