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
  const auto standing = world->standing(window);
  ASSERT_TRUE(standing);
  const auto found = provider->window(grip(*standing));
  ASSERT_TRUE(found);
  const Rect target = place(0, 0, 0.5, 1);
  ASSERT_TRUE(provider->setFrame(found->id, target));
  EXPECT_TRUE(comesNear(window, target));
}

TEST_P(WindowProviderContract, TheFrameOfAWindowIsWhereItStandsAtThatMoment) {
  const auto window = openFocused({.title = "wandering"});
  const auto id = focused().id;
  const auto standing = world->standing(window);
  ASSERT_TRUE(standing);
  EXPECT_TRUE(isNear(provider->frame(id), *standing));
  const Rect elsewhere = place(0.3, 0.3, 0.4, 0.4);
  world->moveByHand(window, elsewhere);
  EXPECT_TRUE(world->settled([&] { return isNear(provider->frame(id), elsewhere); }));
}

TEST_P(ReportedFrameContract, AWindowThatKeepsToStepsIsDraggedFromWhereItReallyStands) {
  const auto window = openFocused({.title = "shell", .widthStep = widthStep, .heightStep = heightStep});
  const auto id = focused().id;
  const Rect asked = place(0.1, 0.1, 0.6, 0.6);
  ASSERT_TRUE(provider->setFrame(id, asked));
  std::optional<Rect> standing;
  ASSERT_TRUE(world->settled([&] { return isNearInSteps(standing = world->standing(window), asked); }));
  EXPECT_TRUE(world->comesTo(asked, [&] { return focused().frame; }));
  EXPECT_TRUE(world->settled([&] {
    standing = world->standing(window);
    const auto pointedAt = provider->window(grip(standing.value_or(asked)));
    const auto near = isNear(provider->frame(id), standing.value_or(asked));
    return near ? isNear(pointedAt ? std::optional(pointedAt->frame) : std::nullopt, standing.value_or(asked))
                : near;
  }));
  EXPECT_FALSE(isNear(standing, asked)) << "the steps happen to fit this frame and show nothing";
}

TEST_P(WindowProviderContract, AClosedWindowHasNoFrameAndIsUnderNoPoint) {
  const auto window = openFocused({.title = "short-lived"});
  const auto id = focused().id;
  const auto standing = world->standing(window);
  ASSERT_TRUE(standing);
  const Point where = middle(*standing);
  world->close(window);
  EXPECT_TRUE(world->comesTo(std::optional<Rect>(), [&] { return provider->frame(id); }));
  EXPECT_EQ(provider->window(where), std::nullopt);
}

TEST_P(WindowProviderContract, AWindowThatWasNeverHandedOutHasNoFrame) {
  EXPECT_EQ(provider->frame(987654), std::nullopt);
}

}  // namespace tilwin::contract
