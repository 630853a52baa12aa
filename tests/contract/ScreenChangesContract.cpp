#include <vector>

#include "tests/contract/World.h"

namespace tilwin::contract {

TEST_P(ScreenChangesContract, ARoomTakenByAPanelIsToldWhenItIsListed) {
  const auto provider = world->provider();
  ASSERT_FALSE(provider->displays().empty());
  const Rect before = provider->displays().at(0).visibleFrame;
  std::vector<Rect> told;
  world->screenChanges().onChange([&] { told.push_back(provider->displays().at(0).visibleFrame); });
  world->takeRoomAtTop(40);
  ASSERT_TRUE(world->settle([&] { return !told.empty(); })) << "no change was reported";
  EXPECT_EQ(told.back().height, before.height - 40);
  world->screenChanges().onChange(nullptr);
}

}  // namespace tilwin::contract
