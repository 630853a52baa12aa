#include "tests/contract/World.h"

namespace tilwin::contract {

TEST_P(ScreenChangesContract, ARoomTakenByAPanelIsToldWhenItIsListed) {
  const auto provider = world->provider();
  const Rect before = provider->displays().front().visibleFrame;
  std::vector<Rect> told;
  world->screenChanges().onChange([&] { told.push_back(provider->displays().front().visibleFrame); });
  world->takeRoomAtTop(40);
  ASSERT_TRUE(world->settle([&] { return !told.empty(); }));
  EXPECT_EQ(told.back().height, before.height - 40);
  world->screenChanges().onChange(nullptr);
}

}  // namespace tilwin::contract
