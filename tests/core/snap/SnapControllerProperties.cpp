#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/core/Arbitrary.h"
#include "tests/core/snap/Snapping.h"

namespace tilwin {
namespace {

const std::array<SnapAction, 3> leftSide{SnapAction::leftHalf, SnapAction::leftTwoThirds,
                                         SnapAction::leftThird};
const std::array<SnapAction, 3> rightSide{SnapAction::rightHalf, SnapAction::rightTwoThirds,
                                          SnapAction::rightThird};

/// Displays with arbitrary margins, the same on each, and a window well inside the first one's visible frame.
struct AnyDesktop : Snapping {
  explicit AnyDesktop(std::string_view displays = "1440x900+0+0,1920x1200+1440-100") : Snapping(displays) {
    const Struts struts{.left = 1.0 * arbitrary::whole(0, 80), .top = 1.0 * arbitrary::whole(0, 40)};
    for (const DisplayInfo& each : desktop.provider()->displays()) desktop.windows.reserve(each.id, struts);
    controller.outer = arbitrary::whole(0, 64);
    controller.gap = arbitrary::whole(0, 64);
    window = open(arbitrary::inside(display(0).visibleFrame));
  }

  Window window = 0;
};

RC_GTEST_PROP(SnapControllerProperties, RestoreAfterAnySequenceOfActionsGivesTheFirstFrame, ()) {
  AnyDesktop desktop;
  const Rect first = desktop.frame(desktop.window);
  const int count = arbitrary::whole(1, 8);
  for (int step = 0; step < count; ++step) {
    const SnapAction action = arbitrary::action();
    if (action != SnapAction::restore) desktop.controller.perform(action);
  }
  const bool moved = desktop.moves() > 0;
  RC_ASSERT(desktop.controller.perform(SnapAction::restore) == moved);
  RC_ASSERT(desktop.frame(desktop.window) == first);
}

RC_GTEST_PROP(SnapControllerProperties, NextThenPreviousDisplayIsTheIdentityOnEqualDisplays, ()) {
  AnyDesktop desktop("1440x900+0+0,1440x900-1440+300,1440x900+2000-77");
  const Rect first = desktop.frame(desktop.window);
  const bool nextFirst = *rc::gen::arbitrary<bool>();
  const SnapAction there = nextFirst ? SnapAction::nextDisplay : SnapAction::previousDisplay;
  const SnapAction back = nextFirst ? SnapAction::previousDisplay : SnapAction::nextDisplay;
  RC_ASSERT(desktop.controller.perform(there));
  RC_ASSERT(desktop.frame(desktop.window) != first);
  RC_ASSERT(desktop.controller.perform(back));
  RC_ASSERT(desktop.frame(desktop.window) == first);
}

RC_GTEST_PROP(SnapControllerProperties, NextDisplayAsOftenAsThereAreDisplaysIsTheIdentity, ()) {
  AnyDesktop desktop("1440x900+0+0,1440x900-1440+300,1440x900+2000-77,1440x900+0-900");
  const Rect first = desktop.frame(desktop.window);
  for (int step = 0; step < 4; ++step) {
    RC_ASSERT(desktop.controller.perform(SnapAction::nextDisplay));
  }
  RC_ASSERT(desktop.frame(desktop.window) == first);
}

RC_GTEST_PROP(SnapControllerProperties, CyclingVisitsTheHalfTheTwoThirdsAndTheThirdAndReturns, ()) {
  AnyDesktop desktop;
  const auto& side = *rc::gen::arbitrary<bool>() ? leftSide : rightSide;
  const Rect area = desktop.display(0).visibleFrame;
  (void)desktop.desktop.provider()->focusedWindow();
  RC_ASSERT(desktop.controller.snap(desktop.window, side[0], desktop.display(0), {}));
  for (std::size_t step = 1; step <= 6; ++step) {
    RC_ASSERT(desktop.controller.perform(side[static_cast<std::size_t>(arbitrary::whole(0, 2))]));
    const auto expected =
        SnapActions::frame(side[step % 3], {}, area, desktop.controller.outer, desktop.controller.gap);
    RC_ASSERT(desktop.frame(desktop.window) == *expected);
  }
}

RC_GTEST_PROP(SnapControllerProperties, AGridActionTwiceWithoutCyclingMovesOnce, ()) {
  AnyDesktop desktop;
  desktop.controller.cycleWidths = false;
  const SnapAction action = arbitrary::gridAction();
  RC_ASSERT(desktop.controller.perform(action));
  const auto moves = desktop.moves();
  RC_ASSERT(desktop.controller.perform(action));
  RC_ASSERT(desktop.moves() == moves);
}

RC_GTEST_PROP(SnapControllerProperties, TheRememberedFrameIsAlwaysTheFirst, ()) {
  AnyDesktop desktop;
  const Rect first = desktop.frame(desktop.window);
  for (int step = 0; step < 5; ++step) {
    desktop.controller.perform(arbitrary::gridAction());
    const auto original = desktop.controller.originalFrame(desktop.window);
    RC_ASSERT(original == (desktop.moves() > 0 ? std::optional(first) : std::nullopt));
  }
}

}  // namespace
}  // namespace tilwin
