#include "platform/macos/displays/MacScreens.h"

#include "platform/macos/displays/MacScreenChanges.h"
#include "tests/contract/ScreensContract.h"
#include "tests/macos/desktop/Living.h"
#include "tests/macos/desktop/MacDesktop.h"
#include "tests/macos/gnustep/ScreensElsewhere.h"

namespace tilwin::macos {
namespace {

constexpr Screen primary{{0, 0, 1440, 900}, {0, 70, 1440, 805}, 1};

/// AppKit's description of a screen with that entry under "NSScreenNumber"; without one if it is nil.
Held<NSDictionary*> description(id number) {
  NSMutableDictionary* const entries = [NSMutableDictionary dictionaryWithObject:@"YES"
                                                                          forKey:NSDeviceIsScreen];
  if (number != nil) [entries setObject:number forKey:@"NSScreenNumber"];
  return retained<NSDictionary*>(entries);
}

ScreenElsewhere appKitScreen(const Screen& screen) {
  return {screen.frame, screen.visibleFrame,
          description(screen.number ? [NSNumber numberWithUnsignedInt:*screen.number] : nil)};
}

class MacScreensWorld : public contract::ScreensWorld {
public:
  MacScreensWorld() = default;
  MacScreensWorld(const MacScreensWorld&) = delete;
  MacScreensWorld& operator=(const MacScreensWorld&) = delete;
  ~MacScreensWorld() override { disconnectScreens(); }

  Screens& screens() override { return screens_; }
  void connect(const std::vector<Screen>& screens) override {
    std::vector<ScreenElsewhere> made;
    made.reserve(screens.size());
    for (const auto& each : screens) made.push_back(appKitScreen(each));
    connectScreens(std::move(made));
  }

private:
  AutoreleasePool pool_;
  MacScreens screens_;
};

std::unique_ptr<contract::ScreensWorld> makeMacScreensWorld() { return std::make_unique<MacScreensWorld>(); }

struct MacScreensTest : testing::Test {
  void TearDown() override { disconnectScreens(); }

  AutoreleasePool pool;
  MacScreens screens;
};

TEST_F(MacScreensTest, TheScreenOfTheXServerIsListed) {
  const auto size = macDesktop().desktop().screenSize();
  const ScreenRect whole{0, 0, double(size.width), double(size.height)};
  ASSERT_EQ(screens.screens().size(), 1U);
  EXPECT_EQ(screens.screens().front().frame, whole);
  EXPECT_EQ(firstScreenHeight(), whole.height);
}

TEST_F(MacScreensTest, ANumberThatIsNoNumberCountsAsMissing) {
  for (id const entry : {id(@"7"), id([NSArray array]), id([NSNull null]), id(nil)}) {
    connectScreens({{primary.frame, primary.visibleFrame, description(entry)}});
    EXPECT_EQ(screens.screens().at(0).number, std::nullopt);
  }
}

TEST_F(MacScreensTest, AScreenWithoutADescriptionHasNoNumber) {
  connectScreens({{primary.frame, primary.visibleFrame, {}}});
  EXPECT_EQ(screens.screens(), (std::vector<Screen>{{primary.frame, primary.visibleFrame, std::nullopt}}));
}

TEST_F(MacScreensTest, TheHeightIsThatOfTheFirstScreenAndZeroWithoutOne) {
  connectScreens({appKitScreen(primary), appKitScreen({{0, 900, 1000, 700}, {0, 900, 1000, 700}, 2})});
  EXPECT_EQ(firstScreenHeight(), 900);
  connectScreens({});
  EXPECT_EQ(firstScreenHeight(), 0);
}

TEST_F(MacScreensTest, AChangeIsToldOnlyToTheLatestHandlerAndOnlyWhileTheAdapterLives) {
  int first = 0;
  int second = 0;
  const Living living({"TWAction"});
  {
    MacScreenChanges changes;
    connectScreens({});
    changes.onChange([&] {
      ++first;
      changes.onChange([&] { ++second; });
    });
    for (int change = 0; change < 3; ++change) connectScreens({appKitScreen(primary)});
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(living.count(), 1);
  }
  EXPECT_EQ(living.count(), 0);
  connectScreens({});
  EXPECT_EQ(second, 2);
}

}  // namespace
}  // namespace tilwin::macos

namespace tilwin::contract {

INSTANTIATE_TEST_SUITE_P(MacOS, ScreensContract, testing::Values(&macos::makeMacScreensWorld));

}  // namespace tilwin::contract
