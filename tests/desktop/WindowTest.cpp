#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/harness/RealApplication.h"

namespace tilwin::desktop {

namespace {

class Windows : public DesktopTest {};

}  // namespace

TEST_F(Windows, AGtkWindowWithAHeaderBarVisiblyFillsTheHalf) {
  const auto application = session().open(Application::gtkHeaderBar);
  focus(application.window());
  const Rect before = settled(application.window());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(application.window(), leftHalf));
  press("Control+Alt+Right");
  EXPECT_TRUE(stands(application.window(), rightHalf));
  press(restoreKeys);
  EXPECT_TRUE(stands(application.window(), before));
}

TEST_F(Windows, AGtkWindowWithAMenuBarFillsTheHalf) {
  const auto application = session().open(Application::gtkMenuBar);
  focus(application.window());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(application.window(), leftHalf));
}

TEST_F(Windows, AQtWindowFillsTheHalf) {
  const auto application = session().open(Application::qt);
  focus(application.window());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(application.window(), leftHalf));
}

TEST_F(Windows, AWindowThatDrawsAShadowVisiblyFillsTheHalf) {
  const TestWindow window =
      session().window({.undecorated = true, .shadow = {.left = 26, .right = 26, .top = 23, .bottom = 29}});
  focus(window.id());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), leftHalf));
}

TEST_F(Windows, AnUndecoratedWindowFillsTheHalf) {
  const TestWindow window = session().window({.undecorated = true});
  focus(window.id());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), leftHalf));
}

TEST_F(Windows, AWindowThatCannotShrinkFarEnoughStartsWhereTheTileStartsAndStillCycles) {
  const TestWindow window = session().window({.area = {200, 150, 1200, 700}, .minimum = {1200, 400}});
  focus(window.id());
  const auto extents = desktop().frameExtents(window.id());
  const double least = 1200.0 + extents.left + extents.right;
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {0, 0, least, 1080}));
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {0, 0, 1280, 1080}));
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {0, 0, least, 1080}));
  press(leftHalfKeys);
  window.settle();
  EXPECT_TRUE(stands(window.id(), {0, 0, least, 1080}));
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {0, 0, 1280, 1080}));
}

TEST_F(Windows, AMaximisedWindowIsReleasedAndFillsTheHalf) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  desktop().setMaximized(window.id(), true);
  ASSERT_TRUE(desktop().waitUntil([&] { return desktop().maximized(window.id()); }));
  window.settle();
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), leftHalf));
  EXPECT_FALSE(desktop().maximized(window.id()));
}

TEST_F(Windows, AFullScreenWindowIsReleasedAndFillsTheHalf) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  desktop().set(window.id(), WindowState::fullScreen, true);
  ASSERT_TRUE(desktop().waitUntil([&] { return desktop().has(window.id(), WindowState::fullScreen); }));
  window.settle();
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), leftHalf));
  EXPECT_FALSE(desktop().has(window.id(), WindowState::fullScreen));
}

TEST_F(Windows, AMaximisedGtkWindowWithAHeaderBarIsReleasedAndFillsTheHalf) {
  const auto application = session().open(Application::gtkHeaderBar);
  focus(application.window());
  desktop().setMaximized(application.window(), true);
  ASSERT_TRUE(desktop().waitUntil([&] { return desktop().maximized(application.window()); }));
  ASSERT_TRUE(stands(application.window(), wholeDisplay));
  press(leftHalfKeys);
  EXPECT_TRUE(stands(application.window(), leftHalf));
}

TEST_F(Windows, AFullScreenGtkWindowWithAHeaderBarIsReleasedAndFillsTheHalf) {
  const auto application = session().open(Application::gtkHeaderBar);
  focus(application.window());
  desktop().set(application.window(), WindowState::fullScreen, true);
  ASSERT_TRUE(stands(application.window(), wholeDisplay));
  press(leftHalfKeys);
  EXPECT_TRUE(stands(application.window(), leftHalf));
}

TEST_F(Windows, AWindowMaximisedByTheUserAfterASnapStaysMaximised) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), leftHalf));
  desktop().setMaximized(window.id(), true);
  ASSERT_TRUE(desktop().waitUntil([&] { return desktop().maximized(window.id()); }));
  window.settle(Milliseconds{500});
  EXPECT_TRUE(desktop().maximized(window.id()));
  EXPECT_TRUE(stands(window.id(), wholeDisplay));
}

TEST_F(Windows, ADialogOfFixedSizeMovesToTheTileAndKeepsItsSize) {
  const TestWindow parent = session().window();
  const TestWindow dialog = session().window({.title = "Fixed dialog",
                                              .area = {700, 400, 320, 180},
                                              .kind = WindowKind::dialog,
                                              .fixedSize = true,
                                              .transientFor = parent.id()});
  focus(dialog.id());
  const Rect before = settled(dialog.id());
  press("Control+Alt+Right");
  EXPECT_TRUE(stands(dialog.id(), {960, 0, before.width, before.height}));
  press(restoreKeys);
  EXPECT_TRUE(stands(dialog.id(), before));
}

TEST_F(Windows, APopupIsLeftAloneAndTheFocusedWindowMoves) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  const TestWindow popup =
      session().window({.title = "Popup", .area = {900, 500, 200, 300}, .overrideRedirect = true});
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), leftHalf));
  EXPECT_EQ(desktop().clientArea(popup.id()), (Rect{900, 500, 200, 300}));
}

TEST_F(Windows, APanelsRoomIsLeftFreeForAsLongAsThePanelIsThere) {
  const TestWindow window = session().window();
  {
    const TestWindow panel = session().window({.title = "Panel",
                                               .area = {0, 0, 1920, 40},
                                               .kind = WindowKind::dock,
                                               .strut = {.top = 40},
                                               .strutSpans = {0, 0, 0, 0, 0, 1919, 0, 0}});
    desktop().settle();
    focusAtStart(window.id());
    press(leftHalfKeys);
    EXPECT_TRUE(stands(window.id(), {0, 40, 960, 1040}));
  }
  desktop().settle();
  focusAtStart(window.id());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), leftHalf));
}

TEST_F(Windows, AWindowMovedByHandAfterASnapIsSnappedAgain) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), leftHalf));
  placeByHand(window.id(), startFrame);
  ASSERT_TRUE(stands(window.id(), startFrame));
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), leftHalf));
}

TEST_F(Windows, AWindowMovedBySomebodyElseRightAfterASnapIsKnownToStandThere) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  constexpr Rect centered{560, 240, 800, 600};
  press("Control+Alt+c");
  ASSERT_TRUE(stands(window.id(), centered));
  desktop().place(window.id(), startFrame);
  ASSERT_TRUE(stands(window.id(), startFrame));
  desktop().settle(Milliseconds{300});  // longer than a manager's answer lasts
  press("Control+Alt+c");
  EXPECT_TRUE(stands(window.id(), centered));
}

TEST_F(Windows, ANewWindowThatGetsTheNumberOfAClosedOneIsNotRestoredToItsFrame) {
  WindowId closed = 0;
  {
    const TestWindow window = session().window();
    closed = window.id();
    focusAtStart(window.id());
    press(leftHalfKeys);
    ASSERT_TRUE(stands(window.id(), leftHalf));
  }
  ASSERT_TRUE(desktop().waitUntil([&] { return !desktop().frame(closed); }));
  const TestWindow window = session().window({.area = {600, 300, 500, 400}});
  ASSERT_EQ(window.id(), closed) << "the server did not use the number again, so this shows nothing";
  focus(window.id());
  const Rect before = settled(window.id());
  press(restoreKeys);
  window.settle();
  EXPECT_TRUE(stands(window.id(), before));
}

}  // namespace tilwin::desktop
