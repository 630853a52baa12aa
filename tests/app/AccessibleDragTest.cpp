#include <gtest/gtest.h>

#include "app/AppDelegate.h"
#include "app/windows/AXWindowProvider.h"
#include "platform/simulated/SimulatedAccessibleDesktop.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "tests/TemporaryFolder.h"

namespace tilwin {
namespace {

constexpr Rect start{100, 100, 800, 600};
constexpr Rect halfAboveTheDock{0, 25, 720, 815};
constexpr Point onTitleBar{400, 110};
constexpr Point inLeftZone{2, 450};

/// The whole program where windows are reached by accessibility: a screen with a menu bar and a dock.
struct AccessibleDrags : testing::Test {
  AccessibleDrags() {
    windows.screens.connected = {{{0, 0, 1440, 900}, {0, 60, 1440, 815}, 1}};
    windows.activate(editor);
    platform.windows = std::make_shared<AXWindowProvider>(windows.tree, windows.workspace, windows.screens);
    delegate.emplace(platform);
    delegate->start();
  }

  void hold(SimulatedAccessibleDesktop::Node window) {
    desktop.mouse.press(onTitleBar);
    dragged = window;
  }
  void dragTo(Point point) {
    windows.place(dragged, {start.x + point.x - onTitleBar.x, start.y + point.y - onTitleBar.y, start.width,
                            start.height});
    desktop.time.advance(std::chrono::milliseconds(50));
    desktop.mouse.drag(point);
  }

  TemporaryFolder folder;
  SimulatedDesktop desktop{"1440x900+0+0", folder.path()};
  SimulatedAccessibleDesktop windows;
  std::int32_t editor = windows.launch({.bundleIdentifier = "org.example.Editor", .localizedName = "Editor"});
  SimulatedAccessibleDesktop::Node dragged = 0;
  Platform platform = desktop.platform();
  std::optional<AppDelegate> delegate;
};

TEST_F(AccessibleDrags, AWindowHeldByAnElementInItsTitleBarIsPreviewedSnappedAndRestored) {
  const auto window = windows.open(editor, {.frame = start});
  const auto title = windows.nest(windows.nest(window), "AXStaticText");
  windows.tree.cover({100, 100, 800, 28}, title);
  hold(window);
  dragTo(inLeftZone);
  EXPECT_EQ(desktop.sheet.visible(), halfAboveTheDock);
  desktop.mouse.release();
  EXPECT_EQ(desktop.sheet.visible(), std::nullopt);
  EXPECT_EQ(windows.standing(window), halfAboveTheDock);
  desktop.keyboard.press({51, 6144});
  desktop.time.runDue();
  EXPECT_EQ(windows.standing(window), start);
}

TEST_F(AccessibleDrags, AWindowThatClosesMeanwhileTakesItsPreviewAlong) {
  const auto window = windows.open(editor, {.frame = start});
  hold(window);
  dragTo(inLeftZone);
  ASSERT_TRUE(desktop.sheet.visible());
  windows.close(window);
  desktop.time.advance(std::chrono::milliseconds(50));
  desktop.mouse.drag({1, 460});
  EXPECT_EQ(desktop.sheet.visible(), std::nullopt);
  desktop.mouse.release();
  EXPECT_TRUE(windows.tree.writes().empty());
}

TEST_F(AccessibleDrags, AWindowOfThisProgramIsNotSnapped) {
  const auto own = windows.launch({.bundleIdentifier = windows.workspace.own, .localizedName = "Tilwin"});
  const auto window = windows.open(own, {.frame = start});
  hold(window);
  dragTo(inLeftZone);
  EXPECT_EQ(desktop.sheet.visible(), std::nullopt);
  desktop.mouse.release();
  EXPECT_TRUE(windows.tree.writes().empty());
}

}  // namespace
}  // namespace tilwin
