#include "tests/contract/World.h"

namespace tilwin::contract {

void MaximizedWindowContract::maximize(World::Window window) {
  world->maximize(window);
  // The state comes first; then the frame, in several steps.
  const auto isDone = [&] {
    return world->isMaximized(window) && world->standing(window) == place(0, 0, 1, 1);
  };
  ASSERT_TRUE(world->settle(isDone)) << "never maximised";
}

testing::AssertionResult MaximizedWindowContract::isMaximizedAt(World::Window window, const Rect& frame) {
  return world->settled([&] {
    const Rect standing = world->standing(window).value_or(Rect());
    const Rect reported = focused().frame;
    if (world->isMaximized(window) && standing == frame && reported == frame) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << (world->isMaximized(window) ? "is" : "is not") << " maximised, at "
                                       << standing << " instead of " << frame << ", reported at " << reported;
  });
}

TEST_P(MaximizedWindowContract, MovedAndRestoredItIsMaximizedWithItsNormalFrameBeneath) {
  const auto window = openFocused({.title = "text", .frame = place(0.2, 0.1, 0.5, 0.6)});
  const Rect normal = world->standing(window).value_or(Rect());
  maximize(window);
  const Rect standing = world->standing(window).value_or(Rect());
  const Rect before = focused().frame;
  moveFocusedTo(window, place(0, 0, 0.5, 1));
  moveFocusedTo(window, place(0.5, 0, 0.5, 1));
  EXPECT_FALSE(world->isMaximized(window));
  ASSERT_TRUE(provider->restoreFrame(focused().id, before));
  EXPECT_TRUE(isMaximizedAt(window, standing));
  world->unmaximize(window);
  EXPECT_TRUE(comesNear(window, normal));
}

TEST_P(MaximizedWindowContract, MaximizedByTheUserAfterAMoveItGoesBackToItsNormalFrame) {
  const auto window = openFocused({.title = "text", .frame = place(0.2, 0.1, 0.5, 0.6)});
  const Rect before = focused().frame;
  moveFocusedTo(window, place(0, 0, 0.5, 1));
  maximize(window);
  moveFocusedTo(window, place(0.5, 0, 0.5, 1));
  ASSERT_TRUE(provider->restoreFrame(focused().id, before));
  EXPECT_TRUE(comesNear(window, before));
  EXPECT_FALSE(world->isMaximized(window));
}

TEST_P(MaximizedWindowContract, MovedToTheSameFrameByAnythingButRestoreItIsNotMaximized) {
  const auto window = openFocused({.title = "text"});
  maximize(window);
  const Rect before = focused().frame;
  moveFocusedTo(window, place(0, 0, 0.5, 1));
  moveFocusedTo(window, before);
  EXPECT_FALSE(world->isMaximized(window));
}

TEST_P(MaximizedWindowContract, ItIsMaximizedAgainOnlyOnce) {
  const auto window = openFocused({.title = "text"});
  const Rect normal = world->standing(window).value_or(Rect());
  maximize(window);
  const Rect standing = world->standing(window).value_or(Rect());
  const Rect before = focused().frame;
  moveFocusedTo(window, place(0, 0, 0.5, 1));
  ASSERT_TRUE(provider->restoreFrame(focused().id, before));
  ASSERT_TRUE(isMaximizedAt(window, standing));
  world->unmaximize(window);
  ASSERT_TRUE(comesNear(window, normal));
  ASSERT_TRUE(provider->restoreFrame(focused().id, before));
  EXPECT_TRUE(comesNear(window, before));
  EXPECT_FALSE(world->isMaximized(window));
}

}  // namespace tilwin::contract
