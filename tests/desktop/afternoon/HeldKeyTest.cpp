#include <gtest/gtest.h>

#include <optional>

#include "tests/desktop/afternoon/Afternoon.h"
#include "tests/desktop/harness/GrabbedKey.h"

namespace tilwin::desktop {

namespace {

constexpr const char* inUse =
    "Another app already uses this shortcut, so it does not work. Choose a different one.";

/// Left half, whose keys another program holds when Tilwin starts.
class AShortcutHeldByAnotherProgram : public testing::Test {
protected:
  void SetUp() override {
    held_.emplace(day_.session().server().display(), leftHalfKeys);
    day_.startTilwin();
    ASSERT_TRUE(saysInTheLog("28 of 29 shortcuts work; another program holds Ctrl+Alt+Left"));
  }

  testing::AssertionResult saysInTheLog(const std::string& words) {
    const auto said = [&] { return day_.log().find(words) != std::string::npos; };
    if (day_.desktop().waitUntil(said)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "expected \"" << words << "\", saw " << day_.log();
  }

  Afternoon day_;
  std::optional<GrabbedKey> held_;
};

}  // namespace

TEST_F(AShortcutHeldByAnotherProgram, WorksOnceItIsFreeAndTheSettingsAreOpened) {
  const TestWindow window = day_.session().window();
  ASSERT_TRUE(day_.desktop().activate(window.id()));
  const auto before = day_.desktop().frame(window.id());
  held_.reset();
  day_.input().press(leftHalfKeys);
  day_.desktop().settle();
  EXPECT_EQ(day_.desktop().frame(window.id()), before);

  day_.openSettings();
  EXPECT_TRUE(saysInTheLog("29 of 29 shortcuts work"));
  day_.closeSettings();
  ASSERT_TRUE(day_.desktop().activate(window.id()));
  day_.input().press(leftHalfKeys);
  const Rect room = day_.room();
  EXPECT_TRUE(day_.stands(window.id(), {room.x, room.y, room.width / 2, room.height}));
}

TEST_F(AShortcutHeldByAnotherProgram, WorksOnceItIsFreeAndTheWindowManagerIsStartedAgain) {
  held_.reset();
  day_.session().manager().stop();
  day_.session().manager().start();
  EXPECT_TRUE(saysInTheLog("29 of 29 shortcuts work"));
}

TEST_F(AShortcutHeldByAnotherProgram, IsNotedAtItsRowAsLongAsItIsHeld) {
  day_.openSettings("Shortcuts");
  static_cast<void>(day_.reader().find("label", inUse));
  held_.reset();
  day_.openSettings();
  EXPECT_TRUE(saysInTheLog("29 of 29 shortcuts work"));
  static_cast<void>(day_.reader().find("push button", "Shortcut for Left half"));
  EXPECT_FALSE(day_.reader().sees("label", inUse));
}

}  // namespace tilwin::desktop
