#include "core/drag/ShadowReport.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/core/EnvironmentVariable.h"
#include "tests/core/drag/Records.h"

namespace tilwin {
namespace {

std::vector<std::string> linesOf(const ShadowSummary& summary) {
  std::istringstream text(ShadowReport::text(summary, atMinute(0)));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

std::string verdictLine(const ShadowSummary& summary) { return linesOf(summary).back(); }

ShadowSummary decided(std::int64_t modelRight, std::int64_t ruleRight) {
  ShadowSummary summary;
  summary.candidates = 200;
  summary.redragged = 100;
  summary.modelRight = modelRight;
  summary.ruleRight = ruleRight;
  return summary;
}

TEST(ShadowReport, SaysWhatTheLogHoldsToTheLetter) {
  const EnvironmentVariable locale("LC_ALL", "en_US.UTF-8");
  const EnvironmentVariable zone("TZ", "UTC");
  ShadowSummary summary;
  summary.candidates = 120;
  summary.ruleSnaps = 80;
  summary.corrected = 20;
  summary.keptSnaps = 60;
  summary.redragged = 13;
  summary.leftAlone = 27;
  summary.modelDiffers = 31;
  summary.modelRight = 14;
  summary.ruleRight = 2;
  summary.firstDay = atMinute(0);
  summary.lastDay = atMinute(0) + std::chrono::days(20);
  EXPECT_EQ(
      ShadowReport::text(summary, atMinute(0)),
      "Tilwin drag report (recorded on this Mac, never sent anywhere)\n"
      "Period: Mar 1, 2026 to Mar 21, 2026\n"
      "Drags that ended near a screen edge: 120\n"
      "  Snapped by today's rule: 80   (undone or moved away within seconds: 20, 25%; left alone: 60)\n"
      "  Not snapped: 40   (then done by hand within seconds: 13, 32% at least; left alone: 27)\n"
      "Learned model, replayed over the same drags:\n"
      "  Would have decided differently on 31 drags; matched your correction where the rule did not on 14, "
      "the rule matched where the model did not on 2.\n"
      "  Evidence for the model over the rule: 3.0 standard errors (about 2.5 or more is convincing).\n"
      "Verdict: the learned model would have beaten today's rule on your own corrections. "
      "Worth turning on.");
}

TEST(ShadowReport, OfAnEmptyLogHasNoPeriodAndNoRates) {
  EXPECT_EQ(
      ShadowReport::text({}, atMinute(0)),
      "Tilwin drag report (recorded on this Mac, never sent anywhere)\n"
      "Drags that ended near a screen edge: 0\n"
      "  Snapped by today's rule: 0   (undone or moved away within seconds: 0, n/a; left alone: 0)\n"
      "  Not snapped: 0   (then done by hand within seconds: 0, n/a at least; left alone: 0)\n"
      "Learned model, replayed over the same drags:\n"
      "  Would have decided differently on 0 drags; matched your correction where the rule did not on 0, "
      "the rule matched where the model did not on 0.\n"
      "  Evidence for the model over the rule: 0.0 standard errors (about 2.5 or more is convincing).\n"
      "Verdict: not enough drags yet (0 of 50 needed). Keep using Tilwin and run this again.");
}

TEST(ShadowReport, HasAPeriodOnlyWithBothDays) {
  ShadowSummary summary;
  summary.firstDay = atMinute(0);
  EXPECT_EQ(linesOf(summary).size(), 8U);
  summary.lastDay = atMinute(0);
  EXPECT_EQ(linesOf(summary).size(), 9U);
}

TEST(ShadowReport, HasNoRateOfUndoneSnapsWithoutASnap) {
  EXPECT_EQ(linesOf(ShadowReport::summarize({leftAlone()})).at(3),
            "  Snapped by today's rule: 0   (undone or moved away within seconds: 0, n/a; left alone: 0)");
}

TEST(ShadowReport, HasNoRateOfMissedSnapsWhereEveryDragSnapped) {
  EXPECT_EQ(linesOf(ShadowReport::summarize({kept()})).at(4),
            "  Not snapped: 0   (then done by hand within seconds: 0, n/a at least; left alone: 0)");
}

TEST(ShadowReport, SaysHowManyDragsAreMissing) {
  EXPECT_EQ(verdictLine(ShadowReport::summarize(logOf({{40, undone()}, {9, redragged()}}))),
            "Verdict: not enough drags yet (49 of 50 needed). Keep using Tilwin and run this again.");
}

TEST(ShadowReport, SaysThatCorrectionsAreRare) {
  EXPECT_EQ(
      verdictLine(ShadowReport::summarize(logOf({{41, kept()}, {5, undone()}, {4, redragged()}}))),
      "Verdict: you correct snaps rarely (9 so far), so today's rule seems to suit you. Nothing to change.");
}

TEST(ShadowReport, SaysWhoDidBetter) {
  EXPECT_EQ(verdictLine(decided(8, 0)),
            "Verdict: the learned model would have beaten today's rule on your own corrections. "
            "Worth turning on.");
  EXPECT_EQ(
      verdictLine(decided(0, 4)),
      "Verdict: today's rule did better than the learned model on your corrections. Leave it as it is.");
  EXPECT_EQ(verdictLine(decided(7, 0)),
            "Verdict: no clear difference yet between the model and today's rule.");
}

TEST(ShadowReport, RoundsEvidenceToOneDecimal) {
  EXPECT_EQ(
      linesOf(decided(0, 4)).at(6),
      "  Evidence for the model over the rule: -2.0 standard errors (about 2.5 or more is convincing).");
  EXPECT_EQ(linesOf(decided(7, 0)).at(6),
            "  Evidence for the model over the rule: 2.6 standard errors (about 2.5 or more is convincing).");
}

TEST(ShadowReport, WritesNumbersWithoutGrouping) {
  ShadowSummary summary;
  summary.candidates = 4'000'000;
  EXPECT_EQ(linesOf(summary).at(1), "Drags that ended near a screen edge: 4000000");
}

TEST(ShadowReport, HasItsDatesAsTheUserReadsThem) {
  const EnvironmentVariable locale("LC_ALL", "de_DE.UTF-8");
  const EnvironmentVariable zone("TZ", "UTC");
  ShadowSummary summary;
  summary.firstDay = summary.lastDay = atMinute(0);
  EXPECT_EQ(linesOf(summary).at(1), "Period: 01.03.2026 to 01.03.2026");
}

}  // namespace
}  // namespace tilwin
