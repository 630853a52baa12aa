#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

constexpr const char* complaint = "does not let the window";

/// Two windows beside each other, tiled by a window manager that nobody can ask to move them.
class TiledWindows : public testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(desktop_.activate(window_.id()));
    desktop_.settle();
    tile_ = desktop_.frame(window_.id()).value_or(Rect());
    session_.input().press(leftHalfKeys);
    ASSERT_TRUE(desktop_.waitUntil([&] { return complaints() > 0; })) << tilwin_.log();
  }

  std::size_t complaints() {
    const std::string log = tilwin_.log();
    std::size_t count = 0;
    for (auto at = log.find(complaint); at != std::string::npos; at = log.find(complaint, at + 1)) ++count;
    return count;
  }

  Session session_{{.manager = arguments().manager, .setup = {.tilesAll = true}}};
  Desktop& desktop_ = session_.desktop();
  TilwinProcess tilwin_{session_, arguments().tilwin};
  TestWindow window_ = session_.window();
  TestWindow other_ = session_.window({.title = "Other"});
  Rect tile_;
};

}  // namespace

TEST_F(TiledWindows, StayWhereTheyAreAndTheLogSaysSoOnce) {
  for (const char* keys : {"Control+Alt+Right", "Control+Alt+u", restoreKeys}) {
    session_.input().press(keys);
    desktop_.settle(Milliseconds{600});
  }
  EXPECT_EQ(desktop_.frame(window_.id()), tile_);
  EXPECT_EQ(complaints(), 1U) << tilwin_.log();
}

TEST_F(TiledWindows, AreNotPreviewedWhenTheyAreDragged) {
  Input& hand = session_.input();
  hand.keyDown(session_.manager().traits().moveModifier);
  hand.takeHold({static_cast<int>(tile_.midX()), static_cast<int>(tile_.midY())});
  hand.comeToRest({1919, 540});
  hand.comeToRest({0, 540});
  EXPECT_FALSE(
      desktop_.waitUntil([&] { return desktop_.unmanagedOfClass("Tilwin").has_value(); }, Milliseconds{300}));
  hand.buttonUp();
  hand.keyUp(session_.manager().traits().moveModifier);
}

}  // namespace tilwin::desktop
