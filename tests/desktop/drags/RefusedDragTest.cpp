#include "tests/desktop/drags/DragTest.h"

namespace tilwin::desktop {

// Each of these could pass because nothing ever snaps: so each ends with a drag that does.

TEST_F(Drags, AWindowLetGoAwayFromTheEdgesStaysWhereItWasLetGo) {
  const TestWindow window = session().window();
  dragTo({10, 540}, window.id());
  EXPECT_TRUE(previewsNothing());
  letGo();
  EXPECT_TRUE(keepsItsSize(window.id()));
  EXPECT_TRUE(stillSnaps(window.id()));
}

TEST_F(Drags, AWindowDraggedOutOfTheZoneAgainIsNotSnapped) {
  const TestWindow window = session().window();
  dragTo(atLeftEdge, window.id());
  EXPECT_TRUE(previews(leftHalf));
  moveTo(inNoZone);
  EXPECT_TRUE(previewsNothing());
  letGo();
  EXPECT_TRUE(keepsItsSize(window.id()));
}

TEST_F(Drags, AWindowResizedToTheEdgeIsNotSnapped) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  const auto border = desktop().frameExtents(window.id());
  // With no border of its own, a manager takes hold of the edge from just outside.
  const int edge = static_cast<int>(startFrame.maxX()) + (border.right > 0 ? -border.right / 2 - 1 : 2);
  hand().takeHold({edge, static_cast<int>(startFrame.y) + 300});
  moveTo({1919, 540});
  EXPECT_TRUE(previewsNothing());
  letGo();
  const Rect after = settled(window.id());
  EXPECT_GT(after.width, 1500) << "the window was not resized";
  EXPECT_EQ(after.x, startFrame.x);
  EXPECT_TRUE(stillSnaps(window.id()));
}

TEST_F(Drags, AClickInAZoneDoesNothing) {
  const TestWindow window = session().window();
  focus(window.id());
  const Rect top{300, 0, 800, 600};
  placeByHand(window.id(), top);
  ASSERT_TRUE(desktop().waitForFrame(window.id(), top));
  hand().takeHold({600, 3});
  EXPECT_TRUE(previewsNothing());
  letGo();
  EXPECT_TRUE(staysAt(window.id(), top));
  EXPECT_TRUE(stillSnaps(window.id()));
}

TEST_F(Drags, AWindowOfAnIgnoredApplicationIsNotSnapped) {
  restartTilwinWith(R"({"ignoredApps":["Slides"]})");
  const TestWindow other = session().window();
  EXPECT_TRUE(stillSnaps(other.id()));
  const TestWindow slides = session().window({.className = "Slides"});
  dragTo(atLeftEdge, slides.id());
  EXPECT_TRUE(previewsNothing());
  letGo();
  EXPECT_TRUE(keepsItsSize(slides.id()));
}

TEST_F(Drags, NothingIsSnappedWhenItIsSwitchedOff) {
  restartTilwinWith(R"({"dragToSnap":false})");
  const TestWindow window = session().window();
  dragTo(atLeftEdge, window.id());
  EXPECT_TRUE(previewsNothing());
  letGo();
  EXPECT_TRUE(keepsItsSize(window.id()));
  press("Control+Alt+Right");
  EXPECT_TRUE(stands(window.id(), rightHalf));
}

TEST_F(Drags, EscapeInAZoneCallsTheDragOff) {
  const TestWindow window = session().window();
  dragTo(atLeftEdge, window.id());
  ASSERT_TRUE(previews(leftHalf));
  press("Escape");
  EXPECT_TRUE(desktop().waitForFrame(window.id(), startFrame));
  EXPECT_TRUE(previewsNothing());
  letGo();
  EXPECT_TRUE(staysAt(window.id(), startFrame));
  EXPECT_TRUE(stillSnaps(window.id()));
}

TEST_F(Drags, AWindowThatMovesItselfWithNoButtonDownIsLeftAlone) {
  TestWindow window = session().window();
  focusAtStart(window.id());
  moveTo(atLeftEdge);
  window.moveTo({0, 300});
  ASSERT_TRUE(desktop().waitUntil([&] { return desktop().frame(window.id()).value().x == 0; }));
  hand().movePointer({0, 560});
  EXPECT_TRUE(previewsNothing());
  EXPECT_TRUE(keepsItsSize(window.id()));
}

}  // namespace tilwin::desktop
