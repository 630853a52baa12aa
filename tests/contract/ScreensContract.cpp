#include "tests/contract/ScreensContract.h"

namespace tilwin::contract {
namespace {

const Screen primary{{0, 0, 1440, 900}, {0, 70, 1440, 805}, 1};
const Screen atTheRight{{1440, -24, 1280, 1024}, {1440, -24, 1280, 999}, 2};
const Screen aboveAtTheLeft{{-1080.5, 900, 1080.5, 1920}, {-1080.5, 900, 1080.5, 1895}, 4'294'967'295U};

}  // namespace

TEST_P(ScreensContract, ScreensAreListedInTheirOrderWithAllTheyHave) {
  const std::vector<Screen> all{primary, atTheRight, aboveAtTheLeft};
  world->connect(all);
  EXPECT_EQ(world->screens().screens(), all);
}

TEST_P(ScreensContract, AScreenWithoutANumberIsListedWithoutOne) {
  Screen numberless = atTheRight;
  numberless.number.reset();
  world->connect({primary, numberless});
  EXPECT_EQ(world->screens().screens(), (std::vector{primary, numberless}));
}

TEST_P(ScreensContract, WhatIsConnectedOrRemovedLaterIsSeen) {
  world->connect({primary});
  EXPECT_EQ(world->screens().screens(), std::vector{primary});
  world->connect({atTheRight, primary});
  EXPECT_EQ(world->screens().screens(), (std::vector{atTheRight, primary}));
  world->connect({});
  EXPECT_EQ(world->screens().screens(), std::vector<Screen>());
}

}  // namespace tilwin::contract
