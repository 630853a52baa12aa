#include <array>
#include <string>

#include "tests/desktop/drags/DragTest.h"

namespace tilwin::desktop {

namespace {

constexpr Milliseconds mouseStep{8};
constexpr int throws = 20;

/// The hand lets go on its way, without coming to rest.
class ThrownDrags : public Drags {
protected:
  /// Throws the window from edge to edge, and lets go that long after the pointer's last step.
  static void throwToAndFro(WindowId window, Milliseconds afterLastStep) {
    for (int count = 0; count < throws; ++count) {
      const auto& [to, frame] = ends.at(static_cast<std::size_t>(count) % ends.size());
      SCOPED_TRACE("throw " + std::to_string(count + 1) + ", " + std::to_string(afterLastStep.count()) +
                   " ms");
      hold(window);
      // Another number of steps each time, as they decide how long ago Tilwin's last look was.
      const int steps = 12 + count % 5;
      hand().glide(oneStepBefore(to, steps), steps, mouseStep);
      hand().movePointer(to);
      desktop().waitUntil([] { return false; }, afterLastStep);
      letGo();
      EXPECT_TRUE(desktop().waitForFrame(window, frame, 0, Milliseconds{2000}))
          << text(desktop().frame(window).value_or(Rect()));
    }
  }

private:
  struct End {
    PixelPoint edge;
    Rect frame;
  };
  static constexpr std::array<End, 2> ends{{{{0, 540}, leftHalf}, {{1919, 540}, rightHalf}}};

  static PixelPoint oneStepBefore(PixelPoint to, int steps) {
    const PixelPoint from = hand().pointer();
    return {to.x - (to.x - from.x) / (steps + 1), to.y - (to.y - from.y) / (steps + 1)};
  }
};

}  // namespace

TEST_F(ThrownDrags, AWindowLetGoTogetherWithTheLastStepOfThePointerIsSnapped) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  throwToAndFro(window.id(), Milliseconds{0});
}

TEST_F(ThrownDrags, AWindowLetGoOneStepOfTheMouseLaterIsSnapped) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  throwToAndFro(window.id(), mouseStep);
}

TEST_F(ThrownDrags, AWindowThrownOutOfAZoneIsNotSnapped) {
  const TestWindow window = session().window();
  dragTo(atLeftEdge, window.id());
  EXPECT_TRUE(previews(leftHalf));
  hand().movePointer({60, 520});
  hand().movePointer(inNoZone);
  letGo();
  EXPECT_TRUE(previewsNothing());
  EXPECT_TRUE(keepsItsSize(window.id()));
  EXPECT_TRUE(stillSnaps(window.id()));
}

}  // namespace tilwin::desktop
