#include "core/drag/ShadowRecorder.h"

#include <gmock/gmock.h>

#include <chrono>
#include <vector>

namespace tilwin {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::int64_t window = 7;
constexpr std::int64_t otherWindow = 8;

struct RecordList final : ShadowSink {
  void append(const ShadowRecord& record) override { records.push_back(record); }
  std::vector<ShadowRecord> records;
};

/// A recorder on a clock that stands until it is moved.
struct Recording : testing::Test {
  std::shared_ptr<RecordList> log = std::make_shared<RecordList>();
  Date now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1) + 14h + 7min;
  ShadowRecorder recorder{log, [this] { return now; }};

  void release(std::int64_t windowID, double distance, std::optional<SnapAction> snapped,
               std::optional<SnapAction> intended = std::nullopt) {
    recorder.release(windowID, {.distance = distance, .settled = 1}, {1440, 900}, snapped, intended);
  }
  void snap() { release(window, 3, SnapAction::leftHalf, SnapAction::leftHalf); }
  void missTheSnap() { release(window, 15, std::nullopt, SnapAction::leftHalf); }
  void wait(std::chrono::microseconds time) { now += time; }

  [[nodiscard]] std::vector<DragFollowUp> followUps() const {
    std::vector<DragFollowUp> result;
    for (const ShadowRecord& record : log->records) result.push_back(record.follow);
    return result;
  }
  [[nodiscard]] ShadowRecord onlyRecord() const {
    EXPECT_THAT(log->records, SizeIs(1));
    return log->records.empty() ? ShadowRecord{} : log->records.front();
  }
};

TEST_F(Recording, HoldsADragThatEndedWithinTheModelsReachAndNoOther) {
  release(window, 24.0, std::nullopt);
  EXPECT_EQ(recorder.pendingCount(), 1U);
  release(otherWindow, 24.01, std::nullopt);
  EXPECT_EQ(recorder.pendingCount(), 1U);
}

TEST_F(Recording, LeavesAHeldDragAloneWhenTheNextEndsFarFromEveryEdge) {
  snap();
  release(window, 300, std::nullopt);
  EXPECT_EQ(recorder.pendingCount(), 1U);
  EXPECT_THAT(log->records, IsEmpty());
}

TEST_F(Recording, RecordsWhatTheDragWasLikeCoarsely) {
  wait(59s + 999ms);
  recorder.release(window, {3.14159, 123.456, 0.125, 0.995, true}, {1439.5, 900.4}, SnapAction::leftHalf,
                   SnapAction::topLeft);
  recorder.flush();
  ShadowRecord expected;
  expected.at = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1) + 14h + 7min;
  expected.screen = "1440x900";
  expected.distance = 3.14;
  expected.speed = 123.46;
  expected.dwell = 0.13;
  expected.settled = 1;
  expected.neighbour = true;
  expected.rule = true;
  expected.zone = "leftHalf";
  expected.follow = DragFollowUp::keptSnap;
  EXPECT_EQ(onlyRecord(), expected);
  EXPECT_EQ(onlyRecord().features(), (DragFeatures{3.14, 123.46, 0.13, 1, true}));
}

TEST_F(Recording, RecordsTheBeginOfTheMinuteAlsoBeforeNineteenSeventy) {
  now = Date(-1s);
  snap();
  recorder.flush();
  EXPECT_EQ(onlyRecord().at, Date(-1min));
}

TEST_F(Recording, RecordsTheZoneThatADragWithoutASnapEndedIn) {
  missTheSnap();
  recorder.flush();
  EXPECT_FALSE(onlyRecord().rule);
  EXPECT_EQ(onlyRecord().zone, "leftHalf");
}

TEST_F(Recording, RecordsNoZoneWhereThereWasNone) {
  release(window, 20, std::nullopt);
  recorder.flush();
  EXPECT_EQ(onlyRecord().zone, std::nullopt);
}

TEST_F(Recording, OfASnapWhoseWindowIsDraggedAgainWithinFourSecondsSaysMovedAway) {
  snap();
  wait(4s);
  recorder.dragMoved(window);
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::restoredOrMovedAway));
  EXPECT_EQ(recorder.pendingCount(), 0U);
}

TEST_F(Recording, OfASnapWhoseWindowIsDraggedAgainLaterSaysKept) {
  snap();
  wait(4s + 1us);
  recorder.dragMoved(window);
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::keptSnap));
}

TEST_F(Recording, OfASnapLeftForFourSecondsSaysKeptAtTheNextTick) {
  snap();
  wait(4s);
  recorder.tick();
  EXPECT_THAT(log->records, IsEmpty());
  wait(1us);
  recorder.tick();
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::keptSnap));
  recorder.tick();
  EXPECT_THAT(log->records, SizeIs(1));
}

TEST_F(Recording, OfASnapThatIsRestoredSaysSo) {
  snap();
  recorder.actionPerformed(window, SnapAction::restore);
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::restoredOrMovedAway));
}

TEST_F(Recording, OfASnapWithAnyOtherActionAfterItWaitsOn) {
  snap();
  recorder.actionPerformed(window, SnapAction::leftHalf);
  recorder.actionPerformed(window, SnapAction::maximize);
  EXPECT_EQ(recorder.pendingCount(), 1U);
  wait(5s);
  recorder.tick();
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::keptSnap));
}

TEST_F(Recording, OfASnapThatIsRestoredTooLateSaysKept) {
  snap();
  wait(4s + 1us);
  recorder.actionPerformed(window, SnapAction::restore);
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::keptSnap));
}

TEST_F(Recording, OfAMissedSnapThatIsMadeWithinFourSecondsSaysDraggedBack) {
  missTheSnap();
  wait(4s);
  recorder.actionPerformed(window, SnapAction::leftHalf);
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::draggedBackToSameEdge));
  EXPECT_FALSE(onlyRecord().rule);
}

TEST_F(Recording, OfAMissedSnapThatIsMadeTooLateSaysLeftAlone) {
  missTheSnap();
  wait(4s + 1us);
  recorder.actionPerformed(window, SnapAction::leftHalf);
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::leftAlone));
}

TEST_F(Recording, OfAMissedSnapWithAnotherActionAfterItWaitsOn) {
  missTheSnap();
  recorder.actionPerformed(window, SnapAction::rightHalf);
  recorder.actionPerformed(window, SnapAction::restore);
  EXPECT_EQ(recorder.pendingCount(), 1U);
  wait(4s + 1us);
  recorder.tick();
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::leftAlone));
}

TEST_F(Recording, OfADragWithoutAZoneIsAnsweredByNoAction) {
  release(window, 20, std::nullopt);
  for (const SnapAction action : SnapActions::all()) recorder.actionPerformed(window, action);
  EXPECT_EQ(recorder.pendingCount(), 1U);
}

TEST_F(Recording, OfAMissedSnapWaitsThroughTheNextDragWhichMayYetEndThere) {
  missTheSnap();
  recorder.dragMoved(window);
  EXPECT_EQ(recorder.pendingCount(), 1U);
  // A drag that snaps performs the action first and is released after.
  recorder.actionPerformed(window, SnapAction::leftHalf);
  snap();
  recorder.flush();
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::draggedBackToSameEdge, DragFollowUp::keptSnap));
}

TEST_F(Recording, ClosesADragWhenTheSameWindowIsReleasedOnceMore) {
  snap();
  missTheSnap();
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::keptSnap));
  snap();
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::keptSnap, DragFollowUp::leftAlone));
  EXPECT_EQ(recorder.pendingCount(), 1U);
}

TEST_F(Recording, KeepsWindowsApart) {
  snap();
  release(otherWindow, 15, std::nullopt, SnapAction::topHalf);
  recorder.dragMoved(otherWindow);
  recorder.actionPerformed(otherWindow, SnapAction::leftHalf);
  EXPECT_EQ(recorder.pendingCount(), 2U);
  recorder.actionPerformed(otherWindow, SnapAction::topHalf);
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::draggedBackToSameEdge));
  EXPECT_EQ(onlyRecord().zone, "topHalf");
}

TEST_F(Recording, KnowsNothingOfWindowsThatWereNotDragged) {
  recorder.dragMoved(window);
  recorder.actionPerformed(window, SnapAction::restore);
  recorder.tick();
  recorder.flush();
  EXPECT_THAT(log->records, IsEmpty());
}

TEST_F(Recording, FlushClosesEverythingInTheOrderOfTheDragsWhateverTheirDeadlines) {
  release(otherWindow, 15, std::nullopt, SnapAction::topHalf);
  wait(1s);
  snap();
  recorder.flush();
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::leftAlone, DragFollowUp::keptSnap));
  EXPECT_EQ(recorder.pendingCount(), 0U);
}

TEST_F(Recording, TickClosesOnlyWhatHasWaitedLongEnough) {
  snap();
  wait(3s);
  release(otherWindow, 15, std::nullopt);
  wait(2s);
  recorder.tick();
  EXPECT_THAT(followUps(), ElementsAre(DragFollowUp::keptSnap));
  EXPECT_EQ(recorder.pendingCount(), 1U);
}

TEST_F(Recording, DiscardRecordsNothing) {
  snap();
  release(otherWindow, 15, std::nullopt);
  recorder.discard();
  recorder.flush();
  EXPECT_EQ(recorder.pendingCount(), 0U);
  EXPECT_THAT(log->records, IsEmpty());
}

TEST_F(Recording, WaitsAsLongAsItIsTold) {
  recorder.followUpWindow = 0.5;
  snap();
  wait(500ms);
  recorder.tick();
  EXPECT_THAT(log->records, IsEmpty());
  wait(1us);
  recorder.tick();
  EXPECT_THAT(log->records, SizeIs(1));
}

TEST_F(Recording, GoesByTheSystemClockUnlessItIsGivenAnother) {
  const Date before = ShadowRecorder::systemClock()();
  ShadowRecorder plain(log);
  plain.release(window, {.distance = 3}, {1440, 900}, SnapAction::leftHalf, std::nullopt);
  plain.flush();
  EXPECT_GE(onlyRecord().at, std::chrono::floor<std::chrono::minutes>(before));
  EXPECT_LE(onlyRecord().at, ShadowRecorder::systemClock()());
}

}  // namespace
}  // namespace tilwin
