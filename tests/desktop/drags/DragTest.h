#pragma once

#include <string>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/DragZones.h"

namespace tilwin::desktop {

/// Drags windows of a real desktop while Tilwin runs. At most one window is held at a time. Each test starts
/// with its own pointer position and settings.
class Drags : public DesktopTest {
protected:
  void SetUp() override;
  void TearDown() override;

  static Input& hand() { return session().input(); }

  /// Presses this button on the window's title bar; where there are none, anywhere in the window with the
  /// manager's modifier held.
  static void hold(WindowId window, int button = 1);
  static void moveTo(PixelPoint point) { hand().comeToRest(point); }
  /// Puts the window at `startFrame`, presses the button on its title bar and moves the pointer to `point`.
  static void dragTo(PixelPoint point, WindowId window);
  static void letGo(int button = 1);

  /// Waits until the preview has exactly this frame; saves a screenshot if a name is given.
  static testing::AssertionResult previews(const Rect& frame, const std::string& picture = "");
  /// Whether there is no preview and none appears soon.
  static testing::AssertionResult previewsNothing();
  /// Waits until the window is at this frame and checks it again a while later, when the window manager has
  /// finished its own reaction to the drag.
  static testing::AssertionResult staysAt(WindowId window, const Rect& frame);
  /// Whether the window keeps its initial size.
  static testing::AssertionResult keepsItsSize(WindowId window);

  /// Drags a window from `startFrame` to a point and releases it: checks the preview, the final frame, and
  /// that the restore shortcut undoes it.
  static void expectSnapAndRestore(WindowId window, const DragExample& example, const std::string& picture);
  /// Whether dragging the window to the left edge snaps it to the left half.
  static testing::AssertionResult stillSnaps(WindowId window, int button = 1);

  static constexpr PixelPoint atLeftEdge{0, 540};
  static constexpr PixelPoint inNoZone{700, 500};

private:
  static std::string pictureOf(const std::string& name);
};

}  // namespace tilwin::desktop
