#include <cmath>

#include "tests/contract/World.h"

namespace tilwin::contract {
namespace {

Point middle(const Rect& frame) { return {std::floor(frame.midX()), std::floor(frame.midY())}; }

/// On the title bar of a window that has one, left of its middle.
Point grip(const Rect& frame) { return {std::floor(frame.x + frame.width * 0.3), frame.y + 10}; }

}  // namespace

TEST_P(WindowProviderContract, TheWindowUnderAPointIsTheOneThatShowsThere) {
  const auto below = openFocused({.title = "below", .frame = {100, 100, 600, 400}});
  const auto above = openFocused({.title = "above", .frame = {400, 200, 500, 400}});
  ASSERT_TRUE(world->standing(below) && world->standing(above));
  const auto title = [&](Point at) {
    const auto window = provider->window(at);
    return window ? window->title : "none";
  };
  EXPECT_EQ(title(middle(*world->standing(above))), "above");
  EXPECT_EQ(title(grip(*world->standing(above))), "above");
  EXPECT_EQ(title(grip(*world->standing(below))), "below");
  EXPECT_EQ(title({1300, 800}), "none");
}

TEST_P(WindowProviderContract, TheWindowUnderAPointIsDescribedAsTheFocusedOneIs) {
  const auto window = openFocused({.bundleID = "ContractReader", .title = "A page"});
  const auto standing = world->standing(window);
  ASSERT_TRUE(standing);
  const auto found = provider->window(grip(*standing));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->id, focused().id);
  EXPECT_EQ(found->bundleID, "ContractReader");
  EXPECT_EQ(found->title, "A page");
  EXPECT_EQ(found->frame, focused().frame);
  EXPECT_EQ(found->zOrder, 0);
}

TEST_P(WindowProviderContract, AWindowFoundUnderAPointCanBeMoved) {
  const auto window = openFocused({.title = "to be moved"});
  const auto found = provider->window(grip(*world->standing(window)));
  ASSERT_TRUE(found);
  const Rect target = place(0, 0, 0.5, 1);
  ASSERT_TRUE(provider->setFrame(found->id, target));
  EXPECT_TRUE(world->settle([&] { return world->standing(window)->isClose(target, borderSlack); }));
}

TEST_P(WindowProviderContract, TheFrameOfAWindowIsWhereItStandsAtThatMoment) {
  const auto window = openFocused({.title = "wandering"});
  const auto id = focused().id;
  EXPECT_TRUE(provider->frame(id)->isClose(*world->standing(window), borderSlack));
  const Rect elsewhere = place(0.3, 0.3, 0.4, 0.4);
  world->moveByHand(window, elsewhere);
  EXPECT_TRUE(world->settle([&] { return provider->frame(id)->isClose(elsewhere, borderSlack); }));
}

TEST_P(ReportedFrameContract, AWindowThatKeepsToStepsIsDraggedFromWhereItReallyStands) {
  const auto window = openFocused({.title = "shell", .widthStep = 37, .heightStep = 41});
  const auto id = focused().id;
  const Rect asked = place(0.1, 0.1, 0.6, 0.6);
  ASSERT_TRUE(provider->setFrame(id, asked));
  Rect standing;
  const auto isSeen = [&](const std::optional<Rect>& frame) {
    return frame && frame->isClose(standing, borderSlack);
  };
  EXPECT_TRUE(world->settle([&] {
    standing = *world->standing(window);
    const auto pointedAt = provider->window(grip(standing));
    return std::abs(standing.x - asked.x) <= borderSlack &&
           std::abs(standing.width - asked.width) <= 37 + borderSlack && focused().frame == asked &&
           isSeen(provider->frame(id)) && pointedAt && isSeen(pointedAt->frame);
  }));
  EXPECT_FALSE(standing.isClose(asked, borderSlack)) << "the steps happen to fit this frame and show nothing";
}

TEST_P(WindowProviderContract, AClosedWindowHasNoFrameAndIsUnderNoPoint) {
  const auto window = openFocused({.title = "short-lived"});
  const auto id = focused().id;
  const Point where = middle(*world->standing(window));
  world->close(window);
  EXPECT_TRUE(world->settle([&] { return !provider->frame(id); }));
  EXPECT_FALSE(provider->window(where));
}

TEST_P(WindowProviderContract, AWindowThatWasNeverHandedOutHasNoFrame) {
  EXPECT_FALSE(provider->frame(987654));
}

}  // namespace tilwin::contract
