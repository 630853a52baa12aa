#include "tests/app/AXWindowProviderFixture.h"

namespace tilwin {
namespace {

using Displays = std::vector<DisplayInfo>;

constexpr Screen laptop{.frame = {0, 0, 1440, 900}, .visibleFrame = {0, 70, 1440, 805}, .number = 4711};

TEST_F(AXWindowProviderTest, WithoutScreensThereAreNoDisplays) { EXPECT_TRUE(provider.displays().empty()); }

TEST_F(AXWindowProviderTest, AScreenIsTurnedUpsideDown) {
  desktop.screens.connected = {laptop};
  const Displays expected{
      {.id = 4711, .frame = {0, 0, 1440, 900}, .visibleFrame = {0, 25, 1440, 805}, .isPrimary = true}};
  EXPECT_EQ(provider.displays(), expected);
}

TEST_F(AXWindowProviderTest, EveryScreenIsTurnedAboutTheFirstOnesHeight) {
  desktop.screens.connected = {
      laptop,
      {.frame = {1440, -200, 2560, 1440}, .visibleFrame = {1440, -200, 2560, 1415}, .number = 2},
      {.frame = {-1080, 900, 1080, 1920}, .visibleFrame = {-1080, 950, 1000, 1870}, .number = 3}};
  const Displays displays = provider.displays();
  ASSERT_EQ(displays.size(), 3);
  EXPECT_EQ(displays[1].frame, (Rect{1440, -340, 2560, 1440}));
  EXPECT_EQ(displays[1].visibleFrame, (Rect{1440, -315, 2560, 1415}));
  EXPECT_EQ(displays[2].frame, (Rect{-1080, -1920, 1080, 1920}));
  EXPECT_EQ(displays[2].visibleFrame, (Rect{-1080, -1920, 1000, 1870}));
}

TEST_F(AXWindowProviderTest, DisplaysKeepTheScreensOrderAndOnlyTheFirstIsPrimary) {
  desktop.screens.connected = {{.frame = {1440, 0, 800, 600}, .number = 9},
                               {.frame = {0, 0, 1440, 900}, .number = 1},
                               {.frame = {-800, 0, 800, 600}, .number = 5}};
  const Displays displays = provider.displays();
  ASSERT_EQ(displays.size(), 3);
  EXPECT_EQ(displays[0].id, 9);
  EXPECT_EQ(displays[1].id, 1);
  EXPECT_EQ(displays[2].id, 5);
  EXPECT_TRUE(displays[0].isPrimary);
  EXPECT_FALSE(displays[1].isPrimary);
  EXPECT_FALSE(displays[2].isPrimary);
}

TEST_F(AXWindowProviderTest, AScreenWithoutANumberHasItsPlaceInTheListAsId) {
  desktop.screens.connected = {laptop, laptop, laptop, laptop};
  desktop.screens.connected[0].number.reset();
  desktop.screens.connected[2].number.reset();
  desktop.screens.connected[3].number = 4294967295;
  const Displays displays = provider.displays();
  ASSERT_EQ(displays.size(), 4);
  EXPECT_EQ(displays[0].id, 0);
  EXPECT_EQ(displays[1].id, 4711);
  EXPECT_EQ(displays[2].id, 2);
  EXPECT_EQ(displays[3].id, 4294967295);
}

TEST_F(AXWindowProviderTest, DisplaysNeedNoPermission) {
  desktop.screens.connected = {laptop};
  tree.isTrusted = false;
  EXPECT_EQ(provider.displays().size(), 1);
}

}  // namespace
}  // namespace tilwin
