#include <cmath>
#include <limits>

#include "tests/contract/World.h"

namespace tilwin::contract {

TEST_P(WindowProviderContract, AMovedWindowStandsAtTheFrameAskedForAndIsReportedThere) {
  const auto window = openFocused({.title = "text"});
  const Rect target = place(0.5, 0, 0.5, 1);
  moveFocusedTo(window, target);
  EXPECT_EQ(focused().frame, target);
  const auto found = listed("text");
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->frame, target);
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
  const auto found = listed("text");
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->id, id);
}

TEST_P(WindowProviderContract, AListedWindowCanBeMovedWithoutTheFocus) {
  const auto window = openFocused({.title = "behind"});
  openFocused({.title = "in front"});
  std::optional<WindowInfo> behind;
  ASSERT_TRUE(world->settle([&] { return (behind = listed("behind")).has_value(); })) << "it is not listed";
  const Rect target = place(0, 0, 0.5, 0.5);
  ASSERT_TRUE(provider->setFrame(behind->id, target));
  EXPECT_TRUE(comesNear(window, target));
}

TEST_P(ReportedFrameContract, AWindowThatRoundsItsSizeIsReportedAtTheFrameAskedFor) {
  const auto window = openFocused({.title = "shell", .widthStep = widthStep, .heightStep = heightStep});
  const Rect target = place(0.1, 0.1, 0.6, 0.6);
  ASSERT_TRUE(provider->setFrame(focused().id, target));
  EXPECT_TRUE(world->settled([&] { return isNearInSteps(world->standing(window), target); }));
  EXPECT_TRUE(world->comesTo(target, [&] { return focused().frame; }));
  EXPECT_NE(world->standing(window), target) << "the steps happen to fit this frame and show nothing";
}

TEST_P(ReportedFrameContract, AWindowThatRefusesToShrinkIsReportedAtTheFrameAskedFor) {
  const double least = place(0, 0, 0.4, 0.4).width;
  const auto window = openFocused({.title = "wide", .frame = place(0, 0, 0.5, 0.5), .minimumWidth = least});
  const Rect target = place(0.1, 0.1, 0.2, 0.4);
  ASSERT_TRUE(provider->setFrame(focused().id, target));
  EXPECT_TRUE(world->settle([&] {
    const auto standing = world->standing(window);
    return standing && std::abs(standing->y - target.y) <= borderSlack;
  })) << "stands at "
      << testing::PrintToString(world->standing(window)) << " after it was asked for " << target;
  EXPECT_TRUE(world->comesTo(target, [&] { return focused().frame; }));
  const auto standing = world->standing(window);
  ASSERT_TRUE(standing.has_value());
  EXPECT_GE(standing->width, least);
}

TEST_P(ReportedFrameContract, AWindowMovedByHandIsReportedWhereItStands) {
  const auto window = openFocused({.title = "shell", .widthStep = widthStep, .heightStep = heightStep});
  const Rect asked = place(0.1, 0.1, 0.6, 0.6);
  ASSERT_TRUE(provider->setFrame(focused().id, asked));
  ASSERT_TRUE(world->comesTo(asked, [&] { return focused().frame; }));
  const Rect byHand = place(0.2, 0.3, 0.4, 0.4);
  world->moveByHand(window, byHand);
  EXPECT_TRUE(world->settled([&] {
    const auto standing = world->standing(window);
    if (!standing || std::abs(standing->x - byHand.x) > borderSlack) {
      return testing::AssertionFailure()
             << "stands at " << testing::PrintToString(standing) << ", not at " << byHand;
    }
    return isNear(focused().frame, *standing);
  }));
}

TEST_P(WindowProviderContract, AMaximizedWindowIsReleasedAndThenMoved) {
  const auto window = openFocused({.title = "text"});
  world->maximize(window);
  ASSERT_TRUE(world->settle([&] { return world->isMaximized(window); })) << "never maximised";
  moveFocusedTo(window, place(0, 0, 0.5, 1));
  EXPECT_FALSE(world->isMaximized(window));
  EXPECT_EQ(focused().frame, place(0, 0, 0.5, 1));
}

TEST_P(WindowProviderContract, AWindowThatClosesBetweenTheQueryAndTheMoveIsNotMoved) {
  const auto window = openFocused({.title = "gone"});
  const auto id = focused().id;
  world->close(window);
  ASSERT_TRUE(world->comesTo(std::optional<Rect>(), [&] { return world->standing(window); }));
  EXPECT_TRUE(world->comesTo(false, [&] { return provider->setFrame(id, place(0, 0, 0.5, 0.5)); }));
}

TEST_P(WindowProviderContract, AWindowThatClosesWithoutWarningHarmsNothing) {
  const auto other = openFocused({.title = "other"});
  const auto window = openFocused({.title = "gone"});
  const auto id = focused().id;
  world->close(window);
  provider->setFrame(id, place(0, 0, 0.5, 0.5));
  world->focus(other);
  ASSERT_TRUE(world->comesTo(std::optional<std::string>("other"), [&] { return focusedTitle(); }));
  moveFocusedTo(other, place(0.5, 0, 0.5, 0.5));
}

TEST_P(WindowProviderContract, AnIdThatWasNeverIssuedIsNotMoved) {
  EXPECT_FALSE(provider->setFrame(-1, place(0, 0, 0.5, 0.5)));
  EXPECT_FALSE(provider->setFrame(987654321012345, place(0, 0, 0.5, 0.5)));
}

TEST_P(WindowProviderContract, AFrameThatNoDesktopHoldsIsRefusedAndTheWindowStays) {
  const auto window = openFocused({.title = "text"});
  const auto id = focused().id;
  const auto before = world->standing(window);
  constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
  constexpr double endless = std::numeric_limits<double>::infinity();
  for (const Rect& frame : {Rect{nowhere, 0, 400, 300}, Rect{0, endless, 400, 300}, Rect{0, 0, nowhere, 300},
                            Rect{0, 0, 400, endless}, Rect{-40000, 0, 400, 300}, Rect{0, 0, 400, 1e300}}) {
    EXPECT_FALSE(provider->setFrame(id, frame)) << frame;
  }
  EXPECT_EQ(focused().frame, before);
  EXPECT_EQ(world->standing(window), before);
}

TEST_P(WindowProviderContract, ListingTheWindowsForgetsTheIdsOfThoseThatAreGone) {
  const auto window = openFocused({.title = "gone"});
  const auto id = focused().id;
  world->close(window);
  ASSERT_TRUE(world->comesTo(std::optional<WindowInfo>(), [&] { return listed("gone"); }));
  EXPECT_FALSE(provider->setFrame(id, place(0, 0, 0.5, 0.5)));
}

}  // namespace tilwin::contract
