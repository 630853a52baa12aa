#include "tests/contract/OverlayContract.h"

namespace tilwin::contract {

void OverlayAmongWindowsContract::show() {
  world->overlay().show(sheet);
  ASSERT_TRUE(world->settle([&] { return world->seen() == sheet; }));
}

TEST_P(OverlayAmongWindowsContract, TakesNoFocus) {
  world->open(below);
  show();
  world->settle();
  EXPECT_TRUE(world->hasFocus());
  world->overlay().hide();
  world->settle();
  EXPECT_TRUE(world->hasFocus());
}

TEST_P(OverlayAmongWindowsContract, LetsClicksThrough) {
  world->open(below);
  show();
  EXPECT_TRUE(world->isReachedByClick({300, 240}));
}

TEST_P(OverlayAmongWindowsContract, IsInFrontAfterEachShow) {
  for (int time = 0; time < 2; ++time) {
    world->open(below);
    world->overlay().show(sheet);
    EXPECT_TRUE(world->settle([&] { return world->seen() == sheet && world->isInFront(); }));
  }
}

}  // namespace tilwin::contract
