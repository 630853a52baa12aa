#include "tests/app/Dragging.h"

namespace tilwin {
namespace {

/// What counts as dragging a window, and what becomes of it.
using DragWatcherMove = Dragging;

Rect shifted(double x, double y) { return {100 + x, 100 + y, 800, 600}; }
Rect resized(double width, double height) { return {50, 100, 800 + width, 600 + height}; }

TEST_F(DragWatcherMove, AWindowLetGoInAZoneFillsIt) {
  user.dragAndLetGo(inLeftZone);
  EXPECT_EQ(user.frame(), leftHalf);
  user.grab({200, 40});
  user.dragTo(inTopZone);
  user.letGo();
  EXPECT_EQ(user.frame(), whole);
}

TEST_F(DragWatcherMove, AWindowLetGoElsewhereStaysThere) {
  user.dragAndLetGo(inNoZone);
  EXPECT_EQ(user.frame(), (Rect{200, 290, 800, 600}));
  EXPECT_EQ(desktop.windows.requestCount(), 0);
  EXPECT_EQ(desktop.sheet.showCount(), 0);
}

TEST_F(DragWatcherMove, AClickMovesNothing) {
  desktop.windows.moveByHand(user.window(), {0, 100, 800, 600});
  user.grab(inLeftZone);
  user.letGo();
  EXPECT_EQ(user.frame(), (Rect{0, 100, 800, 600}));
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(DragWatcherMove, APointerThatLeavesTheWindowBehindMovesNothing) {
  user.grab();
  user.pull(MouseUser::untouched, inLeftZone);
  user.letGo();
  EXPECT_EQ(user.frame(), MouseUser::untouched);
}

TEST_F(DragWatcherMove, FourPointsAreNotFarEnough) {
  user.grab();
  for (const Rect& frame : {shifted(4, 0), shifted(0, 4), shifted(-4, -4), shifted(4, 4)}) {
    user.pull(frame, inLeftZone);
    EXPECT_EQ(preview(), std::nullopt) << frame;
  }
  user.letGo();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(DragWatcherMove, AnythingMoreIsInEveryDirection) {
  for (const Rect& frame : {shifted(4.5, 0), shifted(0, 4.5), shifted(-4.5, 0), shifted(3, -4.5)}) {
    desktop.windows.moveByHand(user.window(), MouseUser::untouched);
    user.grab();
    user.pull(frame, inLeftZone);
    EXPECT_EQ(preview(), leftHalf) << frame;
    desktop.mouse.cancel();
  }
}

TEST_F(DragWatcherMove, AResizedWindowIsNotSnapped) {
  for (const Rect& frame : {resized(2.5, 0), resized(-2.5, 0), resized(0, 2.5), resized(0, -2.5)}) {
    desktop.windows.moveByHand(user.window(), MouseUser::untouched);
    user.grab();
    user.pull(frame, inLeftZone);
    EXPECT_EQ(preview(), std::nullopt) << frame;
    user.letGo();
    EXPECT_EQ(user.frame(), frame);
  }
}

TEST_F(DragWatcherMove, TwoPointsMoreOrLessAreNoResize) {
  for (const Rect& frame : {resized(2, 0), resized(-2, 0), resized(0, 2), resized(2, -2)}) {
    desktop.windows.moveByHand(user.window(), MouseUser::untouched);
    user.grab();
    user.pull(frame, inLeftZone);
    EXPECT_EQ(preview(), leftHalf) << frame;
    desktop.mouse.cancel();
  }
}

TEST_F(DragWatcherMove, AWindowThatIsBackAtItsSizeCountsAsMoved) {
  user.grab();
  user.pull(resized(50, 0), inLeftZone);
  user.pull(resized(0, 50), inLeftZone);
  EXPECT_EQ(preview(), std::nullopt);
  user.pull(resized(0, 0), inLeftZone);
  EXPECT_EQ(preview(), leftHalf);
}

TEST_F(DragWatcherMove, OnceItMovesItsSizeNoLongerMatters) {
  user.grab();
  user.dragTo(inNoZone);
  user.pull(resized(300, -200), inLeftZone);
  EXPECT_EQ(preview(), leftHalf);
}

TEST_F(DragWatcherMove, OnceItMovesItMayComeBack) {
  user.grab();
  user.dragTo(inNoZone);
  user.pull(MouseUser::untouched, inLeftZone);
  user.letGo();
  EXPECT_EQ(user.frame(), leftHalf);
}

TEST_F(DragWatcherMove, WhatThePreviewShowedIsWhatHappens) {
  user.grab();
  user.dragTo(inLeftZone);
  desktop.mouse.move(inNoZone);
  user.letGo();
  EXPECT_EQ(user.frame(), leftHalf);
}

TEST_F(DragWatcherMove, AReleaseInAWindowOfThisProgramEndsADragToo) {
  user.grab();
  user.dragTo(inRightZone);
  desktop.mouse.releaseInThisProgram();
  EXPECT_EQ(user.frame(), rightHalf);
  EXPECT_EQ(preview(), std::nullopt);
}

TEST_F(DragWatcherMove, RestoreBringsTheFrameBeforeTheDragBack) {
  user.grab();
  user.dragTo(inNoZone);
  user.dragTo(inLeftZone);
  user.letGo();
  EXPECT_TRUE(controller.perform(SnapAction::restore));
  EXPECT_EQ(user.frame(), MouseUser::untouched);
}

TEST_F(DragWatcherMove, AWindowDraggedFarOutOfItsZoneAndBackIsSnappedAgain) {
  user.dragAndLetGo(inLeftZone);
  user.grab({200, 40});
  user.dragTo(inNoZone);
  user.letGo();
  EXPECT_EQ(user.frame(), (Rect{300, 285, 720, 875}));
  user.grab({500, 300});
  user.dragTo(inLeftZone);
  user.letGo();
  EXPECT_EQ(user.frame(), leftHalf);
}

TEST_F(DragWatcherMove, TheTopmostWindowIsTheOneThatCounts) {
  const auto above = desktop.windows.open({.frame = {300, 100, 400, 300}});
  user.dragAndLetGo(inLeftZone);
  // The one above did not move, so nothing was dragged.
  EXPECT_EQ(desktop.windows.find(above)->frame, (Rect{300, 100, 400, 300}));
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(DragWatcherMove, AMovedWindowIsPutInItsZoneEvenIfItRefusesOnce) {
  desktop.windows.find(user.window())->answer = SimulatedWindow::Answer::refuses;
  user.dragAndLetGo(inLeftZone);
  EXPECT_EQ(preview(), std::nullopt);
  desktop.windows.find(user.window())->answer = SimulatedWindow::Answer::obeys;
  user.grab(inLeftZone);
  user.dragTo(inRightZone);
  user.letGo();
  EXPECT_EQ(user.frame(), rightHalf);
}

/// How often the window is looked at.
using DragWatcherPace = Dragging;
using namespace std::chrono_literals;

TEST_F(DragWatcherPace, AnEventThirtyMillisecondsAfterACheckIsPassedOver) {
  user.grab();
  user.dragTo(inNoZone);
  user.dragTo(inLeftZone, 30ms);
  EXPECT_EQ(preview(), std::nullopt);
}

TEST_F(DragWatcherPace, OneJustLaterIsNot) {
  user.grab();
  user.dragTo(inNoZone);
  user.dragTo(inLeftZone, 30001us);
  EXPECT_EQ(preview(), leftHalf);
}

TEST_F(DragWatcherPace, EventsPassedOverDoNotPutOffTheNextCheck) {
  user.grab();
  user.dragTo(inNoZone);
  user.dragTo(inLeftZone, 20ms);
  EXPECT_EQ(preview(), std::nullopt);
  user.dragTo(inLeftZone, 11ms);
  EXPECT_EQ(preview(), leftHalf);
}

TEST_F(DragWatcherPace, TheFirstEventOfTheFirstDragIsLookedAtAtOnce) {
  user.grab();
  user.dragTo(inLeftZone, 0us);
  EXPECT_EQ(preview(), leftHalf);
}

TEST_F(DragWatcherPace, ANewDragDoesNotBeginANewCount) {
  user.dragAndLetGo(inNoZone);
  user.grab(inNoZone);
  user.dragTo(inLeftZone, 30ms);
  EXPECT_EQ(preview(), std::nullopt);
  user.dragTo(inLeftZone, 1ms);
  EXPECT_EQ(preview(), leftHalf);
}

TEST_F(DragWatcherPace, EventsOfNoWindowCountForNothing) {
  desktop.mouse.press({1300, 800});
  desktop.mouse.drag(inRightZone);
  desktop.mouse.release();
  user.grab();
  user.dragTo(inLeftZone, 1ms);
  EXPECT_EQ(preview(), leftHalf);
}

TEST_F(DragWatcherPace, AClockSetBackDoesNotStopTheZones) {
  user.grab();
  user.dragTo(inNoZone);
  desktop.time.setWallClock(desktop.mainQueue().now() - 1h);
  user.dragTo(inLeftZone, 1ms);
  EXPECT_EQ(preview(), leftHalf);
  user.dragTo(inNoZone, 30ms);
  EXPECT_EQ(preview(), leftHalf);
  user.dragTo(inNoZone, 1ms);
  EXPECT_EQ(preview(), std::nullopt);
}

TEST_F(DragWatcherPace, AClockSetForwardLetsTheNextEventThrough) {
  user.grab();
  user.dragTo(inNoZone);
  desktop.time.setWallClock(desktop.mainQueue().now() + 1h);
  user.dragTo(inLeftZone, 1ms);
  EXPECT_EQ(preview(), leftHalf);
}

}  // namespace
}  // namespace tilwin
