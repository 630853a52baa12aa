#include <gtest/gtest.h>

#include <cmath>

#include "tests/core/drag/Records.h"

namespace tilwin {
namespace {

/// What the next lesson makes of a model that has these scores once they have faded; model and rule agree on
/// it, so that it adds nothing.
DragIntentModel afterALessonWith(double modelOnlyRight, double ruleOnlyRight, std::int64_t updates,
                                 bool trusted) {
  DragIntentModel model;
  model.modelOnlyRight = modelOnlyRight / 0.999;
  model.ruleOnlyRight = ruleOnlyRight / 0.999;
  model.updates = updates;
  model.trusted = trusted;
  model.learn(releasedAt(1), true, 1);
  return model;
}

bool isGained(double modelOnlyRight, double ruleOnlyRight, std::int64_t updates = 1000) {
  return afterALessonWith(modelOnlyRight, ruleOnlyRight, updates, false).isTrusted();
}

bool isKept(double modelOnlyRight, double ruleOnlyRight) {
  return afterALessonWith(modelOnlyRight, ruleOnlyRight, 1000, true).isTrusted();
}

TEST(DragModelTrust, IsGainedByEvidenceOverEnoughDisagreement) {
  EXPECT_TRUE(isGained(25, 1));
  EXPECT_FALSE(isGained(19.5, 0)) << "4.4 standard errors, but too little disagreement";
  EXPECT_TRUE(isGained(20.5, 0));
  EXPECT_FALSE(isGained(20, 9)) << "2.04 standard errors";
}

TEST(DragModelTrust, NeedsTwoAndAHalfStandardErrors) {
  // Of 100 units, 62.5 to 37.5.
  EXPECT_FALSE(isGained(62.49, 37.51));
  EXPECT_TRUE(isGained(62.51, 37.49));
}

/// A score that one lesson's fading makes exactly this.
double fadingTo(double score) {
  double before = score / 0.999;
  while (before * 0.999 < score) before = std::nextafter(before, 1e9);
  while (before * 0.999 > score) before = std::nextafter(before, 0);
  EXPECT_EQ(before * 0.999, score);
  return before;
}

TEST(DragModelTrust, IsGainedByExactlyTwoAndAHalfStandardErrors) {
  // 25.5 to 10.5: fifteen ahead, over a root of six.
  DragIntentModel model = sureOfSnapping();
  model.updates = 40;
  model.ruleOnlyRight = fadingTo(10.5);
  model.learn(releasedAt(12), true, 25.5);
  ASSERT_EQ(model.evidence(), 2.5);
  EXPECT_TRUE(model.isTrusted());
}

TEST(DragModelTrust, IsKeptAtExactlyHalfAStandardErrorBehind) {
  // Of sixteen, two behind.
  DragIntentModel model = sureOfSnapping();
  model.trusted = true;
  model.modelOnlyRight = fadingTo(7);
  model.learn(releasedAt(12), false, 9);
  ASSERT_EQ(model.evidence(), -0.5);
  EXPECT_TRUE(model.isTrusted());
}

TEST(DragModelTrust, NeedsFortyLessonsBeforeTheOneThatGivesIt) {
  EXPECT_FALSE(isGained(25, 1, 39));
  EXPECT_TRUE(isGained(25, 1, 40));
}

TEST(DragModelTrust, IsLostAsSoonAsTheRuleIsHalfAStandardErrorAhead) {
  EXPECT_TRUE(isKept(50, 50));
  EXPECT_TRUE(isKept(47.51, 52.49));
  EXPECT_FALSE(isKept(47.49, 52.51));
}

TEST(DragModelTrust, IsNotLostOverNextToNoDisagreement) {
  EXPECT_TRUE(isKept(0, 0.99));
  EXPECT_FALSE(isKept(0, 1.01));
}

TEST(DragModelTrust, OutlastsEvidenceThatWouldNotGainIt) {
  EXPECT_TRUE(isKept(5, 5));
  EXPECT_FALSE(isGained(5, 5));
}

TEST(DragModelTrust, IsEarnedFromAUserWhoSnapsFromFartherAwayAndLostWhenTheUserChanges) {
  DragIntentModel model;
  int lessons = 0;
  while (!model.isTrusted() && ++lessons < 2000) {
    model.learn(releasedAt(12), DragFollowUp::draggedBackToSameEdge);
    model.learn(releasedAt(22), DragFollowUp::leftAlone);
  }
  ASSERT_TRUE(model.isTrusted());
  EXPECT_GT(lessons, 20);
  lessons = 0;
  while (model.isTrusted() && ++lessons < 2000)
    model.learn(releasedAt(12), DragFollowUp::restoredOrMovedAway);
  EXPECT_FALSE(model.isTrusted());
}

}  // namespace
}  // namespace tilwin
