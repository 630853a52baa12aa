#include "core/drag/ShadowSummary.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/drag/ShadowReport.h"
#include "tests/core/drag/Records.h"

namespace tilwin {
namespace {

/// Of enough drags and corrections, with the model and the rule having been right alone so often.
ShadowSummary::Verdict verdictAt(std::int64_t modelRight, std::int64_t ruleRight) {
  ShadowSummary summary;
  summary.candidates = 200;
  summary.redragged = 100;
  summary.modelRight = modelRight;
  summary.ruleRight = ruleRight;
  return summary.verdict();
}

using NotEnough = ShadowSummary::NotEnoughDrags;

TEST(ShadowSummary, OfAnEmptyLogIsEmpty) {
  const ShadowSummary summary = ShadowReport::summarize({});
  EXPECT_EQ(summary, ShadowSummary{});
  EXPECT_EQ(summary.verdict(), (ShadowSummary::Verdict(NotEnough{.have = 0, .need = 50})));
}

TEST(ShadowSummary, CountsDragsByWhatWasDoneAfterThem) {
  const ShadowSummary summary =
      ShadowReport::summarize(logOf({{4, undone()}, {3, kept()}, {2, redragged()}, {1, leftAlone()}}));
  EXPECT_EQ(summary.candidates, 10);
  EXPECT_EQ(summary.ruleSnaps, 7);
  EXPECT_EQ(summary.corrected, 4);
  EXPECT_EQ(summary.keptSnaps, 3);
  EXPECT_EQ(summary.redragged, 2);
  EXPECT_EQ(summary.leftAlone, 1);
  EXPECT_EQ(summary.corrections(), 6);
}

TEST(ShadowSummary, KnowsItsFirstAndLastDayWhateverTheOrderOfLines) {
  const ShadowSummary summary = ShadowReport::summarize({kept(50), kept(3), kept(700), kept(4)});
  EXPECT_EQ(summary.firstDay, atMinute(3));
  EXPECT_EQ(summary.lastDay, atMinute(700));
}

TEST(ShadowSummary, HasRatesOnlyWhereThereWasSomethingToRate) {
  const ShadowSummary mixed =
      ShadowReport::summarize(logOf({{1, undone()}, {3, kept()}, {1, redragged()}, {1, leftAlone()}}));
  EXPECT_EQ(mixed.falseSnapRate(), 0.25);
  EXPECT_EQ(mixed.missRate(), 0.5);
  EXPECT_EQ(ShadowReport::summarize({leftAlone()}).falseSnapRate(), std::nullopt);
  EXPECT_EQ(ShadowReport::summarize({kept()}).missRate(), std::nullopt);
}

TEST(ShadowSummary, CountsADifferenceOnlyWhereWhatHappenedWasNotTheRulesOwnDistanceWhileTheModelIsUntrusted) {
  ShadowRecord snappedFarAway = recordOf(12, DragFollowUp::restoredOrMovedAway);
  snappedFarAway.rule = true;
  ShadowRecord missedNearby = recordOf(6, DragFollowUp::draggedBackToSameEdge);
  missedNearby.rule = false;
  const ShadowSummary summary =
      ShadowReport::summarize({undone(), kept(), redragged(), leftAlone(), snappedFarAway, missedNearby});
  EXPECT_EQ(summary.modelDiffers, 2);
  EXPECT_EQ(summary.modelRight, 2);
  EXPECT_EQ(summary.ruleRight, 0);
}

TEST(ShadowSummary, CountsDifferencesThatTheUserDidNotSettleForNeitherSide) {
  ShadowRecord keptFarAway = recordOf(12, DragFollowUp::keptSnap);
  keptFarAway.rule = true;
  ShadowRecord missedNearby = recordOf(3, DragFollowUp::leftAlone);
  missedNearby.rule = false;
  const ShadowSummary summary = ShadowReport::summarize({keptFarAway, missedNearby});
  EXPECT_EQ(summary.modelDiffers, 2);
  EXPECT_EQ(summary.modelRight, 0);
  EXPECT_EQ(summary.ruleRight, 0);
}

TEST(ShadowSummary, CountsForTheRuleWhereTheUserAgreedWithWhatWasDone) {
  // Not snapped at 3 points, and wanted so; snapped at 12, and wanted so.
  ShadowRecord rightlyMissed = recordOf(3, DragFollowUp::restoredOrMovedAway);
  rightlyMissed.rule = false;
  ShadowRecord rightlySnapped = recordOf(12, DragFollowUp::draggedBackToSameEdge);
  rightlySnapped.rule = true;
  const ShadowSummary summary = ShadowReport::summarize({rightlyMissed, rightlySnapped});
  EXPECT_EQ(summary.modelRight, 0);
  EXPECT_EQ(summary.ruleRight, 2);
}

/// A user whose every missed snap at 12 points is made by hand, and who lets windows stand at 22.
std::vector<ShadowRecord> drawnOutLog(std::int64_t drags) {
  std::vector<ShadowRecord> records;
  for (std::int64_t minute = 0; minute < drags; ++minute) {
    records.push_back(minute % 2 == 0 ? redragged(minute) : recordOf(22, DragFollowUp::leftAlone, minute));
  }
  return records;
}

TEST(ShadowSummary, LetsATrustedModelDecide) {
  const ShadowSummary summary = ShadowReport::summarize(drawnOutLog(1000));
  EXPECT_TRUE(summary.modelTrusted);
  EXPECT_GT(summary.modelRight, 100);
  EXPECT_EQ(summary.ruleRight, 0);
  EXPECT_EQ(summary.verdict(), ShadowSummary::Verdict(ShadowSummary::ModelWouldHelp{}));
}

TEST(ShadowSummary, DoesNotDependOnTheOrderOfLinesInTheLog) {
  const std::vector<ShadowRecord> records = drawnOutLog(300);
  const std::vector<ShadowRecord> backwards(records.rbegin(), records.rend());
  EXPECT_EQ(ShadowReport::summarize(backwards), ShadowReport::summarize(records));
}

TEST(ShadowSummary, ReplaysDragsOfOneMinuteInTheirOrder) {
  std::vector<ShadowRecord> sameMinute = drawnOutLog(300);
  for (ShadowRecord& record : sameMinute) record.at = atMinute(0);
  ShadowSummary expected = ShadowReport::summarize(drawnOutLog(300));
  expected.lastDay = expected.firstDay;
  EXPECT_EQ(ShadowReport::summarize(sameMinute), expected);
}

TEST(ShadowVerdict, WaitsForFiftyDrags) {
  const auto verdict = ShadowReport::summarize(logOf({{49, redragged()}})).verdict();
  EXPECT_EQ(verdict, (ShadowSummary::Verdict(NotEnough{.have = 49, .need = 50})));
}

TEST(ShadowVerdict, WaitsForTenCorrectionsAfterThat) {
  const ShadowSummary::Verdict tooFew = ShadowSummary::TooFewCorrections{};
  EXPECT_EQ(ShadowReport::summarize(logOf({{41, kept()}, {9, undone()}})).verdict(), tooFew);
  EXPECT_NE(ShadowReport::summarize(logOf({{40, kept()}, {10, undone()}})).verdict(), tooFew);
}

TEST(ShadowVerdict, NeedsEightWinsForTheModel) {
  EXPECT_EQ(verdictAt(8, 0), ShadowSummary::Verdict(ShadowSummary::ModelWouldHelp{}));
  EXPECT_EQ(verdictAt(7, 0), ShadowSummary::Verdict(ShadowSummary::NoClearDifference{}));
}

TEST(ShadowVerdict, NeedsTwoAndAHalfStandardErrorsForTheModel) {
  EXPECT_EQ(verdictAt(15, 3), ShadowSummary::Verdict(ShadowSummary::ModelWouldHelp{})) << "2.83";
  EXPECT_EQ(verdictAt(15, 4), ShadowSummary::Verdict(ShadowSummary::ModelWouldHelp{})) << "2.52";
  EXPECT_EQ(verdictAt(13, 3), ShadowSummary::Verdict(ShadowSummary::ModelWouldHelp{})) << "2.5";
  EXPECT_EQ(verdictAt(15, 5), ShadowSummary::Verdict(ShadowSummary::NoClearDifference{})) << "2.24";
}

TEST(ShadowVerdict, NeedsTwoStandardErrorsForTheRule) {
  EXPECT_EQ(verdictAt(0, 4), ShadowSummary::Verdict(ShadowSummary::RuleIsBetter{}));
  EXPECT_EQ(verdictAt(0, 3), ShadowSummary::Verdict(ShadowSummary::NoClearDifference{}));
}

TEST(ShadowVerdict, SeesNoDifferenceWhereTheTwoNeverDiffered) {
  EXPECT_EQ(verdictAt(0, 0), ShadowSummary::Verdict(ShadowSummary::NoClearDifference{}));
}

TEST(ShadowEvidence, IsASignTestOverTheDragsOnWhichTheTwoDiffered) {
  ShadowSummary summary;
  EXPECT_EQ(summary.evidence(), 0);
  summary.modelRight = 8;
  EXPECT_DOUBLE_EQ(summary.evidence(), std::sqrt(8.0));
  summary.ruleRight = 8;
  EXPECT_EQ(summary.evidence(), 0);
  summary.modelRight = 0;
  summary.ruleRight = 4;
  EXPECT_EQ(summary.evidence(), -2);
}

}  // namespace
}  // namespace tilwin
