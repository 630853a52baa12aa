#include "tests/desktop/drags/DragTest.h"

namespace tilwin::desktop {

TEST_F(Drags, AWindowClosedWhileItIsDraggedTakesItsPreviewAlong) {
  TestWindow window = session().window();
  dragTo(atLeftEdge, window.id());
  EXPECT_TRUE(previews(leftHalf));
  window.destroy();
  ASSERT_TRUE(desktop().waitUntil([&] { return !desktop().frame(window.id()); }));
  moveTo({0, 560});
  EXPECT_TRUE(previewsNothing());
  letGo();
  const TestWindow next = session().window();
  EXPECT_TRUE(stillSnaps(next.id()));
  EXPECT_EQ(tilwin().log().find("X error"), std::string::npos) << tilwin().log();
}

TEST_F(Drags, ASecondButtonPressedAndLetGoMeanwhileEndsNothing) {
  const TestWindow window = session().window();
  dragTo(atLeftEdge, window.id());
  EXPECT_TRUE(previews(leftHalf));
  hand().buttonDown(3);
  hand().buttonUp(3);
  EXPECT_TRUE(previews(leftHalf));
  letGo();
  EXPECT_TRUE(staysAt(window.id(), leftHalf));
}

TEST_F(Drags, AWindowThatMovesItselfUnderAHeldButtonIsSnapped) {
  TestWindow window = session().window();
  focusAtStart(window.id());
  PixelPoint inside{700, 500};
  hand().takeHold(inside);
  for (int step = 1; step <= 10; ++step) {
    hand().glide({inside.x - 70 * step, inside.y}, 1, Milliseconds{40});
    window.moveTo({static_cast<int>(startFrame.x) - 30 * step, static_cast<int>(startFrame.y)});
  }
  ASSERT_TRUE(desktop().waitUntil([&] { return desktop().frame(window.id()).value().x == 0; }));
  moveTo(atLeftEdge);
  EXPECT_TRUE(previews(leftHalf));
  letGo();
  EXPECT_TRUE(staysAt(window.id(), leftHalf));
}

TEST_F(Drags, AWindowWhoseProgramMovesItOnceMoreWhenItIsLetGoStaysSnapped) {
  TestWindow window = session().window();
  for (const int delay : {0, 5, 30}) {
    focusAtStart(window.id());
    hold(window.id());
    moveTo(atLeftEdge);
    EXPECT_TRUE(previews(leftHalf));
    letGo();
    desktop().waitUntil([] { return false; }, Milliseconds{delay});
    window.moveTo({300, 200});
    EXPECT_TRUE(staysAt(window.id(), leftHalf)) << "moved after " << delay << " ms";
    press(restoreKeys);
  }
}

TEST_F(Drags, ALeftHandedPersonDragsWithTheThirdButtonAndNotWithTheFirst) {
  const TestWindow window = session().window();
  hand().setLeftHanded(true);
  EXPECT_TRUE(stillSnaps(window.id(), 3));
  focusAtStart(window.id());
  hold(window.id(), 1);
  moveTo({1919, 540});
  EXPECT_TRUE(previewsNothing());
  letGo(1);
  // The first button now opens the title bar's menu, where there is one.
  press("Escape");
}

TEST_F(Drags, AWindowDraggedByAnyPartOfItWithTheManagersModifierIsSnapped) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  const char* modifier = session().manager().traits().moveModifier;
  hand().keyDown(modifier);
  hand().takeHold({700, 600});
  moveTo(atLeftEdge);
  EXPECT_TRUE(previews(leftHalf));
  letGo();
  hand().keyUp(modifier);
  EXPECT_TRUE(staysAt(window.id(), leftHalf));
}

TEST_F(Drags, AreWatchedAfterTheManagerWasRestarted) {
  const TestWindow window = session().window();
  session().manager().restart();
  EXPECT_TRUE(stillSnaps(window.id()));
}

}  // namespace tilwin::desktop
