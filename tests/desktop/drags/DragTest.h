#pragma once

#include <string>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/DragZones.h"

namespace tilwin::desktop {

/// Windows of a real desktop dragged by hand, with Tilwin running. A hand holds at most one window; where it
/// stands when a test begins, and Tilwin's settings, are no matter of the test before.
class Drags : public DesktopTest {
protected:
  void SetUp() override;
  void TearDown() override;

  static Input& hand() { return session().input(); }

  /// Takes hold of a window by its title bar, with this button.
  static void hold(WindowId window, int button = 1);
  static void moveTo(PixelPoint point) { hand().comeToRest(point); }
  /// Has the window at `startFrame`, takes hold of it and moves it until the pointer is there.
  static void dragTo(PixelPoint point, WindowId window);
  static void letGo(int button = 1) { hand().buttonUp(button); }

  /// Whether the preview comes up with exactly that frame; a picture is kept of it when it is named.
  static testing::AssertionResult previews(const Rect& frame, const std::string& picture = "");
  /// Whether there is no preview, nor comes one soon.
  static testing::AssertionResult previewsNothing();
  /// Whether the frame comes to be that and is the same a while later: whatever a manager does after a drag
  /// is done by then.
  static testing::AssertionResult staysAt(WindowId window, const Rect& frame);
  /// Whether the window keeps the size that it started with.
  static testing::AssertionResult keepsItsSize(WindowId window);

  /// A window at `startFrame` dragged to a point and let go there is previewed, stands there, and goes back
  /// to its start by the keys that restore.
  static void expectSnapAndRestore(WindowId window, const DragExample& example, const std::string& picture);
  /// Whether a window is snapped to the left half by a drag to the left edge, as any other.
  static testing::AssertionResult stillSnaps(WindowId window, int button = 1);

  static constexpr PixelPoint atLeftEdge{0, 540};
  static constexpr PixelPoint inNoZone{700, 500};

private:
  static std::string pictureOf(const std::string& name);
};

}  // namespace tilwin::desktop
