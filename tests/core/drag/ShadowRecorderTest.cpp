#include "core/drag/ShadowRecorder.h"

#include "tests/core/drag/Recording.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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
