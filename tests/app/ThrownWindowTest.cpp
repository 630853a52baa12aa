#include "core/drag/ShadowLogFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/Dragging.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

/// Windows let go while the pointer still moves, on a desktop that tells of the pointer as real ones do.
struct ThrownWindows : Dragging {
  ThrownWindows() { desktop.mouse.paceBy(desktop.time); }

  /// Drags in steps of a mouse, of which the last one comes to the point, and lets go that long after it.
  /// What comes before `phase` decides how long ago the last look is by then.
  void throwTo(Point point, milliseconds afterLastStep = 0ms, milliseconds phase = 0ms) {
    desktop.windows.moveByHand(user.window(), MouseUser::untouched);
    desktop.time.advance(100ms + phase);
    user.grab();
    user.dragTo({MouseUser::grip.x, MouseUser::grip.y + 20}, 8ms);
    desktop.time.advance(phase);
    constexpr int steps = 10;
    for (int step = 1; step <= steps; ++step) {
      const double part = static_cast<double>(step) / steps;
      user.dragTo({MouseUser::grip.x + part * (point.x - MouseUser::grip.x),
                   MouseUser::grip.y + part * (point.y - MouseUser::grip.y)},
                  8ms);
    }
    desktop.time.advance(afterLastStep);
    user.letGo();
  }
  /// Longer than a release is held back.
  void wait() { desktop.time.advance(32ms); }
};

TEST_F(ThrownWindows, AreSnappedWhereTheyAreLetGoHoweverLongAgoTheLastLookWas) {
  for (const milliseconds afterLastStep : {0ms, 1ms, 8ms, 16ms, 30ms, 100ms}) {
    for (milliseconds phase = 0ms; phase < 32ms; ++phase) {
      throwTo(inLeftZone, afterLastStep, phase);
      wait();
      EXPECT_EQ(user.frame(), leftHalf) << afterLastStep.count() << " ms, " << phase.count() << " ms";
      EXPECT_EQ(preview(), std::nullopt);
    }
  }
}

TEST_F(ThrownWindows, AreSnappedByTheZoneTheyAreLetGoInAndNotByOneTheyCameThrough) {
  user.grab();
  user.dragTo(inLeftZone);
  EXPECT_EQ(preview(), leftHalf);
  user.dragTo(inTopZone, 8ms);
  user.letGo();
  wait();
  EXPECT_EQ(user.frame(), whole);
}

TEST_F(ThrownWindows, StayWhereTheyAreIfThrownOutOfAZone) {
  user.grab();
  user.dragTo(inLeftZone);
  EXPECT_EQ(preview(), leftHalf);
  user.dragTo(inNoZone, 8ms);
  user.letGo();
  wait();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
  EXPECT_EQ(preview(), std::nullopt);
}

TEST_F(ThrownWindows, AreSnappedAlsoIfTheHandGoesOnAfterIt) {
  user.grab();
  user.dragTo(inNoZone);
  user.dragTo(inLeftZone, 8ms);
  user.letGo();
  desktop.mouse.drag(inRightZone);
  wait();
  EXPECT_EQ(user.frame(), leftHalf);
}

TEST_F(ThrownWindows, AreSnappedAlsoIfTheyHadNotGoneFarAtTheOnlyLookBefore) {
  user.grab();
  user.dragTo({MouseUser::grip.x - 2, MouseUser::grip.y}, 8ms);
  user.dragTo(inLeftZone, 8ms);
  user.letGo();
  wait();
  EXPECT_EQ(user.frame(), leftHalf);
}

TEST_F(ThrownWindows, AreNotSnappedWhenThatIsSwitchedOffBeforeTheLastLook) {
  throwTo(inLeftZone);
  watcher->isEnabled = [] { return false; };
  wait();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(ThrownWindows, AreNotSnappedIfTheyWereResized) {
  user.grab();
  user.pull({100, 100, 700, 600}, inNoZone);
  user.pull({100, 100, 300, 600}, inLeftZone);
  desktop.mouse.drag({0, 450});
  user.letGo();
  wait();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(ThrownWindows, ThatCloseBeforeTheLastLookLeaveNoPreview) {
  throwTo(inLeftZone);
  desktop.windows.close(user.window());
  wait();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
  EXPECT_EQ(preview(), std::nullopt);
}

TEST_F(ThrownWindows, AWindowWhosePointerRestedIsSnappedAtOnce) {
  user.grab();
  user.dragTo(inNoZone);
  user.dragTo(inLeftZone);
  user.letGo();
  EXPECT_EQ(user.frame(), leftHalf);
}

TEST_F(ThrownWindows, AreRecordedAsSnappedExactlyIfTheyAreLetGoInAZone) {
  const TemporaryFolder folder;
  const auto log = std::make_shared<ShadowLogFile>(folder.path() / "log");
  watcher->shadow = std::make_shared<ShadowRecorder>(
      log, [this] { return std::chrono::floor<Date::duration>(desktop.mainQueue().now()); });
  watcher->isShadowOn = [] { return true; };
  for (double distance = 0; distance <= 12; ++distance) {
    throwTo({distance, 450}, 0ms, milliseconds(static_cast<int>(distance)));
    wait();
    desktop.time.advance(10s);
    watcher->shadow->tick();
  }
  log->drain();
  const auto records = ShadowLogFile::read(folder.path() / "log");
  ASSERT_EQ(records.size(), 13);
  for (double distance = 0; const ShadowRecord& record : records) {
    EXPECT_EQ(record.distance, distance);
    EXPECT_EQ(record.rule, distance <= 6) << distance;
    EXPECT_EQ(record.zone, "leftHalf");
    ++distance;
  }
}

}  // namespace
}  // namespace tilwin
