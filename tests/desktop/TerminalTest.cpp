#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/RealApplication.h"

namespace tilwin::desktop {

namespace {

/// Windows whose size goes by whole character cells.
class Terminals : public DesktopTest {};

}  // namespace

TEST_F(Terminals, ATerminalTakesWholeCellsAndStillCyclesAndRestores) {
  const auto terminal = session().open(Application::xterm);
  focus(terminal.window());
  const Rect before = settled(terminal.window());
  constexpr double cell = 20;  // more than the height of a line of the terminal's font
  for (const double width : {960.0, 1280.0, 640.0, 960.0}) {
    press(leftHalfKeys);
    EXPECT_TRUE(stands(terminal.window(), {0, 0, width, 1080}, cell));
    desktop().settle();  // else the next press meets a request that is still on its way
  }
  press(restoreKeys);
  EXPECT_TRUE(stands(terminal.window(), before));
}

TEST_F(Terminals, AWindowOfWholeCellsSnappedByAnEarlierTilwinStillCycles) {
  const TestWindow window = session().window({.increment = {37, 41}});
  constexpr double cell = 41;
  focus(window.id());
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), leftHalf, cell));
  const bool hasWholeCells = settled(window.id()) != leftHalf;  // xfwm4 grants every size that is asked for
  restartTilwin();
  if (hasWholeCells) {
    press(leftHalfKeys);                  // asks for what the window has but for its whole cells
    desktop().settle(Milliseconds{700});  // by then the manager had its time to answer
  }
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {0, 0, 1280, 1080}, cell));
}

TEST_F(Terminals, ATerminalMovedByHandAfterASnapIsSnappedAgain) {
  const auto terminal = session().open(Application::xterm);
  focus(terminal.window());
  press(leftHalfKeys);
  ASSERT_TRUE(stands(terminal.window(), leftHalf, 20));
  const Rect snapped = settled(terminal.window());
  placeByHand(terminal.window(), {300, 200, snapped.width, snapped.height});
  ASSERT_TRUE(desktop().waitUntil([&] { return desktop().frame(terminal.window()).value().x > 200; }));
  press(leftHalfKeys);
  EXPECT_TRUE(stands(terminal.window(), snapped));
}

}  // namespace tilwin::desktop
