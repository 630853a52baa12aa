#include "tests/core/drag/Recording.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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

}  // namespace
}  // namespace tilwin
