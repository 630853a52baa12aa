#include "platform/simulated/SimulatedWindowProvider.h"
#include "tests/app/Dragging.h"

namespace tilwin {
namespace {

/// What keeps a drag from being watched, and what ends it early.
struct DragWatcherGuard : Dragging {
  void expectNoSnap() {
    user.letGo();
    EXPECT_EQ(preview(), std::nullopt);
    EXPECT_EQ(desktop.windows.requestCount(), 0);
  }
};

using Monitor = SimulatedPointer::Monitor;
using Reach = SimulatedPointer::Reach;
constexpr Monitor cancelledDrags{Reach::cancelled, std::nullopt};

const std::vector<Monitor> theMonitors{{Reach::global, PointerEvent::leftMouseDown},
                                       {Reach::global, PointerEvent::leftMouseDragged},
                                       {Reach::global, PointerEvent::leftMouseUp},
                                       {Reach::local, PointerEvent::leftMouseUp},
                                       cancelledDrags};

TEST_F(DragWatcherGuard, InstallsItsMonitorsOnceAndInOrder) {
  EXPECT_EQ(desktop.mouse.monitors(), theMonitors);
  watcher->start();
  EXPECT_EQ(desktop.mouse.monitors(), theMonitors);
}

TEST_F(DragWatcherGuard, TakesItsMonitorsAlong) {
  watcher.reset();
  EXPECT_TRUE(desktop.mouse.monitors().empty());
  user.dragAndLetGo(inLeftZone);
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(DragWatcherGuard, DoesWithoutTheMonitorsThatTheDesktopRefuses) {
  watcher.reset();
  desktop.mouse.refuse({Reach::local, PointerEvent::leftMouseUp});
  desktop.mouse.refuse(cancelledDrags);
  DragWatcher other({desktop.provider(), desktop.mouse, desktop.sheet, desktop.user, desktop.time},
                    controller);
  other.start();
  other.start();
  EXPECT_EQ(desktop.mouse.monitors(), std::vector(theMonitors.begin(), theMonitors.begin() + 3));
  user.dragAndLetGo(inLeftZone);
  EXPECT_EQ(user.frame(), leftHalf);
}

TEST_F(DragWatcherGuard, WatchesNothingUntilItIsStarted) {
  watcher.reset();
  DragWatcher other({desktop.provider(), desktop.mouse, desktop.sheet, desktop.user, desktop.time},
                    controller);
  EXPECT_TRUE(desktop.mouse.monitors().empty());
}

TEST_F(DragWatcherGuard, DoesNothingWhileItIsSwitchedOff) {
  watcher->isEnabled = [] { return false; };
  user.grab();
  user.dragTo(inLeftZone);
  expectNoSnap();
}

TEST_F(DragWatcherGuard, SwitchedOffDuringADragItForgetsTheDrag) {
  bool enabled = true;
  watcher->isEnabled = [&] { return enabled; };
  user.grab();
  user.dragTo(inLeftZone);
  enabled = false;
  desktop.mouse.drag(inLeftZone);
  EXPECT_EQ(preview(), std::nullopt);
  enabled = true;
  user.dragTo(inRightZone);
  expectNoSnap();
}

TEST_F(DragWatcherGuard, SwitchedOffBeforeTheReleaseItDoesNotSnap) {
  bool enabled = true;
  watcher->isEnabled = [&] { return enabled; };
  user.grab();
  user.dragTo(inLeftZone);
  enabled = false;
  expectNoSnap();
}

TEST_F(DragWatcherGuard, WithoutTrustEveryEventForgetsTheDrag) {
  desktop.user.setTrusted(false);
  user.grab();
  desktop.user.setTrusted(true);
  user.dragTo(inLeftZone);
  expectNoSnap();

  user.grab(inLeftZone);
  user.dragTo(inRightZone);
  EXPECT_EQ(preview(), rightHalf);
  desktop.user.setTrusted(false);
  user.dragTo(inRightZone);
  EXPECT_EQ(preview(), std::nullopt);
  desktop.user.setTrusted(true);
  expectNoSnap();

  user.grab(inRightZone);
  user.dragTo(inLeftZone);
  desktop.user.setTrusted(false);
  expectNoSnap();
}

TEST_F(DragWatcherGuard, AWindowOfAnIgnoredApplicationIsNotTracked) {
  std::vector<std::string> asked;
  watcher->isIgnored = [&](const std::string& bundleID) {
    asked.push_back(bundleID);
    return true;
  };
  user.grab();
  user.dragTo(inLeftZone);
  expectNoSnap();
  EXPECT_EQ(asked, std::vector{desktop.windows.find(user.window())->bundleID});
}

TEST_F(DragWatcherGuard, WhatIsSwitchedOffDoesNotEvenAskForTheWindow) {
  watcher->isEnabled = [] { return false; };
  watcher->isIgnored = [](const std::string&) {
    ADD_FAILURE() << "asked about an application";
    return false;
  };
  user.dragAndLetGo(inLeftZone);
}

TEST_F(DragWatcherGuard, AWindowOfThisProgramIsNotTracked) {
  desktop.windows.find(user.window())->isOfThisProgram = true;
  user.grab();
  user.dragTo(inLeftZone);
  expectNoSnap();
}

TEST_F(DragWatcherGuard, APressOnNoWindowIsNoDrag) {
  user.grab({1300, 800});
  user.dragTo(inRightZone);
  expectNoSnap();
}

TEST_F(DragWatcherGuard, AWindowThatClosesDuringTheDragEndsIt) {
  user.grab();
  user.dragTo(inLeftZone);
  desktop.windows.close(user.window());
  desktop.time.advance(MouseUser::pause);
  desktop.mouse.drag(inLeftZone);
  expectNoSnap();
}

TEST_F(DragWatcherGuard, AWindowThatClosesJustBeforeTheReleaseIsNoHarm) {
  user.grab();
  user.dragTo(inLeftZone);
  desktop.windows.close(user.window());
  user.letGo();
  EXPECT_EQ(preview(), std::nullopt);
}

TEST_F(DragWatcherGuard, ADragCalledOffByTheUserIsForgotten) {
  user.grab();
  user.dragTo(inLeftZone);
  desktop.mouse.cancel();
  EXPECT_EQ(preview(), std::nullopt);
  user.dragTo(inLeftZone);
  expectNoSnap();
}

TEST_F(DragWatcherGuard, AfterADragCalledOffTheNextOneWorks) {
  user.grab();
  user.dragTo(inLeftZone);
  desktop.mouse.cancel();
  user.letGo();
  desktop.windows.moveByHand(user.window(), MouseUser::untouched);
  user.dragAndLetGo(inRightZone);
  EXPECT_EQ(user.frame(), rightHalf);
}

TEST_F(DragWatcherGuard, APressWhoseReleaseGotLostIsForgotten) {
  user.grab();
  user.dragTo(inLeftZone);
  user.grab(inNoZone);
  EXPECT_EQ(preview(), std::nullopt);
  expectNoSnap();
}

TEST_F(DragWatcherGuard, AReleaseOrAMoveWithoutAPressIsNoHarm) {
  watcher->isEnabled = [] { return false; };
  user.grab();
  watcher->isEnabled = [] { return true; };
  user.dragTo(inLeftZone);
  expectNoSnap();
}

TEST_F(DragWatcherGuard, WithoutWindowsToAskForThereIsNothingToDrag) {
  watcher.reset();
  auto windows = std::make_shared<SimulatedWindowProvider>(desktop.windows);
  DragWatcher other({windows, desktop.mouse, desktop.sheet, desktop.user, desktop.time}, controller);
  other.start();
  user.grab();
  user.dragTo(inLeftZone);
  EXPECT_EQ(preview(), leftHalf);
  windows.reset();
  user.dragTo(inLeftZone);
  EXPECT_EQ(preview(), std::nullopt);
  user.grab();
  user.dragTo(inLeftZone);
  other.displaysChanged();
  expectNoSnap();
}

}  // namespace
}  // namespace tilwin
