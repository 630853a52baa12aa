#include "tests/contract/OverlayContract.h"

#include <array>
#include <limits>

namespace tilwin::contract {
namespace {

constexpr Rect sheet{100, 80, 400, 300};
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::array notPlaceable{Rect{0, 0, noNumber, 100}, Rect{noNumber, 0, 100, 100},
                                  Rect{1e9, 0, 100, 100}, Rect{0, 0, 100, 40'000}};

}  // namespace

void OverlayContract::show(const Rect& at) {
  world->overlay().show(at);
  EXPECT_TRUE(world->settle([&] { return world->seen() == at; }))
      << "wanted " << testing::PrintToString(at) << ", seen " << testing::PrintToString(world->seen());
}

TEST_P(OverlayContract, MakesNoWindowBeforeItIsShown) {
  world->overlay().hide();
  world->settle();
  EXPECT_EQ(world->windows(), 0);
  EXPECT_EQ(world->seen(), std::nullopt);
}

TEST_P(OverlayContract, StandsWhereItIsShownAndMovesWithEachShow) {
  for (const Rect& at :
       {sheet, Rect{0, 0, 800, 600}, Rect{400, 300, 400, 300}, Rect{-20, -10, 300, 200}, sheet}) {
    show(at);
  }
  EXPECT_EQ(world->windows(), 1);
}

TEST_P(OverlayContract, IsGoneOnceHiddenAndBackWhenShownAgain) {
  show(sheet);
  for (int time = 0; time < 2; ++time) {
    world->overlay().hide();
    EXPECT_TRUE(world->settle([&] { return !world->seen(); }));
  }
  show({200, 150, 300, 200});
  show(sheet);
}

TEST_P(OverlayContract, IsNotShownOnAFrameThatIsNotPlaceable) {
  for (const Rect& at : notPlaceable) world->overlay().show(at);
  world->settle();
  EXPECT_EQ(world->seen(), std::nullopt);
  EXPECT_EQ(world->windows(), 0);
}

TEST_P(OverlayContract, StaysWhereItIsForAFrameThatIsNotPlaceable) {
  show(sheet);
  for (const Rect& at : notPlaceable) world->overlay().show(at);
  world->settle();
  EXPECT_EQ(world->seen(), sheet);
}

TEST_P(OverlayContract, GoesWithItsOwner) {
  show(sheet);
  world->destroyOverlay();
  EXPECT_TRUE(world->settle([&] { return !world->seen() && world->windows() == 0; }));
}

}  // namespace tilwin::contract
