#include "core/drag/ShadowLogFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/Dragging.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;

/// What of a drag is told to the recorder, read from the log that comes of it.
struct DragWatcherRecords : DraggingOnTwoDisplays {
  DragWatcherRecords() {
    watcher->shadow = recorder;
    watcher->isShadowOn = [this] { return isOn; };
    controller.onEvent = [this](std::int64_t window, SnapAction action) {
      recorder->actionPerformed(window, action);
    };
  }
  [[nodiscard]] std::vector<ShadowRecord> records() {
    recorder->flush();
    log->drain();
    return ShadowLogFile::read(folder.path() / "log");
  }
  [[nodiscard]] ShadowRecord onlyRecord() {
    const auto all = records();
    EXPECT_EQ(all.size(), 1);
    return all.empty() ? ShadowRecord{} : all.front();
  }
  /// A drag of a few samples that ends at a point.
  void dragSlowlyTo(Point point) {
    user.grab();
    user.dragTo({400, 450});
    user.dragTo({200, 450});
    user.dragTo(point);
  }

  TemporaryFolder folder;
  bool isOn = true;
  std::shared_ptr<ShadowLogFile> log = std::make_shared<ShadowLogFile>(folder.path() / "log");
  std::shared_ptr<ShadowRecorder> recorder = std::make_shared<ShadowRecorder>(
      log, [this] { return std::chrono::floor<Date::duration>(desktop.mainQueue().now()); });
};

TEST_F(DragWatcherRecords, ASnap) {
  dragSlowlyTo(inLeftZone);
  user.letGo();
  const ShadowRecord record = onlyRecord();
  EXPECT_TRUE(record.rule);
  EXPECT_EQ(record.zone, "leftHalf");
  EXPECT_EQ(record.distance, 2);
  EXPECT_EQ(record.screen, "1440x900");
  EXPECT_FALSE(record.neighbour);
  EXPECT_EQ(record.follow, DragFollowUp::keptSnap);
}

TEST_F(DragWatcherRecords, AReleaseNearAnEdgeWithoutASnap) {
  dragSlowlyTo({10, 450});
  user.letGo();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
  const ShadowRecord record = onlyRecord();
  EXPECT_FALSE(record.rule);
  EXPECT_EQ(record.zone, "leftHalf");
  EXPECT_EQ(record.distance, 10);
  EXPECT_EQ(record.follow, DragFollowUp::leftAlone);
}

TEST_F(DragWatcherRecords, UpToTwentyFourPointsFromAnEdge) {
  dragSlowlyTo({24, 450});
  user.letGo();
  EXPECT_EQ(onlyRecord().distance, 24);
}

TEST_F(DragWatcherRecords, NothingFartherFromEveryEdge) {
  dragSlowlyTo({24.5, 450});
  user.letGo();
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, TheCornerThatWasMeant) {
  dragSlowlyTo({20, 50});
  user.letGo();
  EXPECT_EQ(onlyRecord().zone, "topLeft");
}

TEST_F(DragWatcherRecords, TheEdgeToAnotherDisplayAndThatDisplaysSize) {
  dragSlowlyTo({1450, 400});
  user.letGo();
  const ShadowRecord record = onlyRecord();
  EXPECT_TRUE(record.neighbour);
  EXPECT_EQ(record.screen, "1000x800");
  EXPECT_EQ(record.distance, 10);
}

TEST_F(DragWatcherRecords, ThePointOfReleaseAsTheLastSample) {
  dragSlowlyTo(inLeftZone);
  desktop.mouse.move({15, 450});
  user.letGo();
  const ShadowRecord record = onlyRecord();
  EXPECT_EQ(record.distance, 15);
  EXPECT_TRUE(record.rule);
}

TEST_F(DragWatcherRecords, TheTimeAtTheEdgeByTheClockThatNeverJumps) {
  dragSlowlyTo({10, 450});
  desktop.time.setWallClock(desktop.mainQueue().now() - 24h);
  desktop.time.advance(300ms);
  user.letGo();
  const ShadowRecord record = onlyRecord();
  EXPECT_EQ(record.dwell, 0.3);
  EXPECT_EQ(record.settled, 1);
  EXPECT_EQ(record.speed, 0);
}

TEST_F(DragWatcherRecords, NoSampleOfAnEventThatIsPassedOver) {
  dragSlowlyTo({10, 450});
  user.dragTo({700, 450}, 10ms);
  user.dragTo({10, 450}, 10ms);
  user.letGo();
  EXPECT_EQ(onlyRecord().dwell, 0.02);
}

TEST_F(DragWatcherRecords, NothingOfAClick) {
  user.grab();
  user.letGo();
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, NothingOfAResize) {
  user.grab();
  user.pull({2, 100, 898, 600}, {2, 300});
  user.pull({2, 100, 898, 600}, {2, 300});
  user.letGo();
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, NothingOfADragCalledOff) {
  dragSlowlyTo({10, 450});
  desktop.mouse.cancel();
  user.letGo();
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, NothingOfAnIgnoredApplication) {
  watcher->isIgnored = [](const std::string&) { return true; };
  dragSlowlyTo({10, 450});
  user.letGo();
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, NothingOfAReleaseOnNoDisplay) {
  dragSlowlyTo(inLeftZone);
  desktop.mouse.move({1500, 850});
  user.letGo();
  EXPECT_EQ(user.frame(), leftHalf);
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, NothingWhileItIsOff) {
  isOn = false;
  dragSlowlyTo({10, 450});
  user.letGo();
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, NothingOfADragDuringWhichItWasTurnedOff) {
  dragSlowlyTo({10, 450});
  isOn = false;
  user.letGo();
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, NothingOfADragWhoseOnlySampleIsTheRelease) {
  isOn = false;
  dragSlowlyTo({10, 450});
  isOn = true;
  user.letGo();
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, NothingWithoutARecorder) {
  watcher->shadow = nullptr;
  dragSlowlyTo(inLeftZone);
  user.letGo();
  EXPECT_EQ(user.frame(), leftHalf);
  EXPECT_TRUE(records().empty());
}

TEST_F(DragWatcherRecords, ThatASnappedWindowWasDraggedAwayAgain) {
  dragSlowlyTo(inLeftZone);
  user.letGo();
  user.grab({200, 40});
  user.dragTo({500, 300});
  user.letGo();
  EXPECT_EQ(onlyRecord().follow, DragFollowUp::restoredOrMovedAway);
}

TEST_F(DragWatcherRecords, ThatASnappedWindowWasOnlyClickedIsNoMatter) {
  dragSlowlyTo(inLeftZone);
  user.letGo();
  user.grab({200, 40});
  user.letGo();
  EXPECT_EQ(onlyRecord().follow, DragFollowUp::keptSnap);
}

TEST_F(DragWatcherRecords, ThatAMissedSnapWasMadeByTheNextDrag) {
  dragSlowlyTo({10, 450});
  user.letGo();
  user.grab({300, 460});
  user.dragTo({310, 460});
  user.dragTo({4, 460});
  user.letGo();
  const auto all = records();
  ASSERT_EQ(all.size(), 2);
  EXPECT_EQ(all[0].follow, DragFollowUp::draggedBackToSameEdge);
  EXPECT_FALSE(all[0].rule);
  EXPECT_EQ(all[1].follow, DragFollowUp::keptSnap);
  EXPECT_TRUE(all[1].rule);
}

TEST_F(DragWatcherRecords, EachDragOfAnotherWindowOnItsOwn) {
  dragSlowlyTo({10, 450});
  user.letGo();
  MouseUser other(desktop);
  other.grab();
  other.dragTo({900, 600});
  other.dragTo({1436, 600});
  other.letGo();
  const auto all = records();
  ASSERT_EQ(all.size(), 2);
  EXPECT_EQ(all[0].zone, "leftHalf");
  EXPECT_EQ(all[1].zone, "rightHalf");
}

TEST_F(DragWatcherRecords, ALongDragByItsEnd) {
  user.grab();
  for (int event = 0; event < 450; ++event) user.dragTo({500.0 + event % 2, 450});
  user.dragTo({10, 450});
  desktop.time.advance(200ms);
  user.letGo();
  EXPECT_EQ(onlyRecord().dwell, 0.2);
}

}  // namespace
}  // namespace tilwin
