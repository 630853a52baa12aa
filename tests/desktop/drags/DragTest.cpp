#include "tests/desktop/drags/DragTest.h"

#include <filesystem>

namespace tilwin::desktop {

namespace {

/// Longer than anything a manager still does to a window after its button is up.
constexpr Milliseconds dragAftermath{300};
/// Longer than a preview takes to come up.
constexpr Milliseconds noPreview{150};

/// Where a window without a title bar is taken hold of, so that it can be moved as far up as one with it.
constexpr int belowTheTop = 12;

void sleepFor(Desktop& desktop, Milliseconds time) {
  desktop.waitUntil([] { return false; }, time);
}

std::optional<Rect> previewOn(Desktop& desktop) {
  const auto overlay = desktop.unmanagedOfClass("Tilwin");
  return overlay ? desktop.topLevelArea(*overlay) : std::nullopt;
}

std::string describe(const std::optional<Rect>& frame) { return frame ? text(*frame) : "none"; }

}  // namespace

void Drags::SetUp() {
  if (std::filesystem::exists(settingsFolder())) {
    endTilwin();
    std::filesystem::remove_all(settingsFolder());
    restartTilwin();
  }
  hand().movePointer(inNoZone);
}

void Drags::TearDown() {
  for (const int button : {1, 3}) letGo(button);
  hand().setLeftHanded(false);
  DesktopTest::TearDown();
}

void Drags::hold(WindowId window, int button) {
  const auto& manager = session().manager().traits();
  if (manager.hasTitleBars) return hand().takeHold(desktop().titleBar(window), button);
  const Rect frame = desktop().frame(window).value_or(Rect());
  hand().keyDown(manager.moveModifier);
  hand().takeHold({static_cast<int>(frame.midX()), static_cast<int>(frame.y) + belowTheTop}, button);
}

void Drags::letGo(int button) {
  hand().buttonUp(button);
  const auto& manager = session().manager().traits();
  if (!manager.hasTitleBars) hand().keyUp(manager.moveModifier);
}

void Drags::dragTo(PixelPoint point, WindowId window) {
  focusAtStart(window);
  hold(window);
  moveTo(point);
}

std::string Drags::pictureOf(const std::string& name) {
  std::filesystem::create_directories(arguments().pictures);
  return arguments().pictures / (name + ".png");
}

testing::AssertionResult Drags::previews(const Rect& frame, const std::string& picture) {
  const bool shown = desktop().waitUntil([&] { return previewOn(desktop()) == frame; }, Milliseconds{1000});
  if (!picture.empty() && !arguments().pictures.empty()) session().screenshot(pictureOf(picture));
  if (shown) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "expected a preview at " << text(frame) << ", saw "
                                     << describe(previewOn(desktop())) << "\n"
                                     << tilwin().log();
}

testing::AssertionResult Drags::previewsNothing() {
  const bool gone = desktop().waitUntil([] { return !previewOn(desktop()); }, Milliseconds{1000});
  sleepFor(desktop(), noPreview);
  if (gone && !previewOn(desktop())) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "a preview at " << describe(previewOn(desktop()));
}

testing::AssertionResult Drags::staysAt(WindowId window, const Rect& frame) {
  const bool came = desktop().waitForFrame(window, frame, 0, Milliseconds{2000});
  sleepFor(desktop(), dragAftermath);
  const auto seen = desktop().frame(window);
  if (came && seen == frame) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "expected " << text(frame) << (came ? " to stay" : "") << ", saw "
                                     << describe(seen) << "\n"
                                     << tilwin().log();
}

testing::AssertionResult Drags::keepsItsSize(WindowId window) {
  const Rect now = settled(window);
  if (now.width == startFrame.width && now.height == startFrame.height) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the window became " << text(now);
}

void Drags::expectSnapAndRestore(WindowId window, const DragExample& example, const std::string& picture) {
  SCOPED_TRACE(example.action);
  dragTo(example.pointer, window);
  EXPECT_TRUE(previews(example.frame, picture));
  letGo();
  EXPECT_TRUE(staysAt(window, example.frame));
  EXPECT_EQ(previewOn(desktop()), std::nullopt);
  press(restoreKeys);
  EXPECT_TRUE(desktop().waitForFrame(window, startFrame)) << describe(desktop().frame(window));
}

testing::AssertionResult Drags::stillSnaps(WindowId window, int button) {
  focusAtStart(window);
  hold(window, button);
  moveTo(atLeftEdge);
  const auto previewed = previews(leftHalf);
  letGo(button);
  return previewed ? staysAt(window, leftHalf) : previewed;
}

}  // namespace tilwin::desktop
