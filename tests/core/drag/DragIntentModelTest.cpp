#include "core/drag/DragIntentModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/core/drag/Records.h"

namespace tilwin {
namespace {

TEST(DragIntentModel, FreshGivesOneHalfAtTheRulesEdgeWhateverElseTheDragWas) {
  const DragIntentModel model;
  EXPECT_EQ(model.probability(releasedAt(6)), 0.5);
  EXPECT_EQ(model.probability({6, 1500, 0.4, 0.3, true}), 0.5);
}

TEST(DragIntentModel, FreshDoesNotSnapExactlyAtTheRulesEdgeWhereTheRuleDoes) {
  const DragIntentModel model;
  EXPECT_FALSE(model.learnedWouldSnap(releasedAt(6)));
  EXPECT_TRUE(model.shouldSnap(releasedAt(6)));
  EXPECT_TRUE(model.learnedWouldSnap(releasedAt(5.99)));
}

TEST(DragIntentModel, WithoutWeightsIsUndecided) {
  DragIntentModel model;
  model.averaged.clear();
  EXPECT_EQ(model.probability(releasedAt(1)), 0.5);
}

TEST(DragIntentModel, MaySnapAtTheEndOfItsReachAndNeverBeyond) {
  DragIntentModel model = sureOfSnapping();
  EXPECT_TRUE(model.learnedWouldSnap(releasedAt(24)));
  EXPECT_FALSE(model.learnedWouldSnap(releasedAt(24.000001)));
  EXPECT_GT(model.probability(releasedAt(24.000001)), 0.5);
}

TEST(DragIntentModel, UntrustedLeavesTheDecisionToTheRule) {
  DragIntentModel model = sureOfSnapping();
  EXPECT_FALSE(model.shouldSnap(releasedAt(6.01)));
  model.trusted = true;
  EXPECT_TRUE(model.shouldSnap(releasedAt(6.01)));
}

TEST(DragIntentModel, DecidesByTheAveragedWeightsAndNotByTheLiveOnes) {
  DragIntentModel model;
  model.weights = sureOfSnapping().weights;
  EXPECT_FALSE(model.learnedWouldSnap(releasedAt(20)));
}

TEST(DragIntentModel, HasNoEvidenceBelowOneUnitOfDisagreement) {
  DragIntentModel model;
  model.modelOnlyRight = 0.9;
  EXPECT_EQ(model.evidence(), 0);
  model.modelOnlyRight = 10;
  EXPECT_DOUBLE_EQ(model.evidence(), std::sqrt(10.0));
  model.ruleOnlyRight = 26;
  EXPECT_DOUBLE_EQ(model.evidence(), -16.0 / 6);
}

TEST(DragIntentModelLesson, MovesTheLiveWeightsByOneStepAndTheAveragedOnesByAFiftiethOfTheWay) {
  DragIntentModel model;
  model.learn({12, 500, 0.15, 0.5, false}, true, 1.0);
  const double error = 1 - 1 / (1 + std::exp(3.0));
  const double bias = 3 + error * 0.35 * 0.25;
  const double distance = -12 + 0.5 * error * 0.35 * 0.4;
  const double speed = 0.25 * error * 0.35 * 1.6;
  EXPECT_DOUBLE_EQ(model.weights.at(0), bias);
  EXPECT_DOUBLE_EQ(model.weights.at(1), distance);
  EXPECT_DOUBLE_EQ(model.weights.at(2), speed);
  EXPECT_EQ(model.weights.at(5), 0);
  EXPECT_DOUBLE_EQ(model.averaged.at(0), 3 + (bias - 3) * 0.02);
  EXPECT_DOUBLE_EQ(model.averaged.at(2), speed * 0.02);
  EXPECT_EQ(model.updates, 1);
}

TEST(DragIntentModelLesson, PullsWeightsBackToWhereTheyBegan) {
  DragIntentModel model;
  model.weights.at(0) = 5;
  const double before = model.weights.at(0);
  model.learn(releasedAt(2), true, 0);
  EXPECT_DOUBLE_EQ(model.weights.at(0), before - 0.35 * 0.05 * 2);
}

TEST(DragIntentModelLesson, ScoresTheModelWhereItAloneWasRight) {
  DragIntentModel model = sureOfSnapping();
  model.learn(releasedAt(12), true, 0.4);
  EXPECT_EQ(model.modelOnlyRight, 0.4);
  EXPECT_EQ(model.ruleOnlyRight, 0);
}

TEST(DragIntentModelLesson, ScoresTheRuleWhereItAloneWasRight) {
  DragIntentModel model = sureOfSnapping();
  model.learn(releasedAt(12), false, 0.25);
  EXPECT_EQ(model.modelOnlyRight, 0);
  EXPECT_EQ(model.ruleOnlyRight, 0.25);
}

TEST(DragIntentModelLesson, TakesBothVerdictsBeforeItLearns) {
  // A fresh model does not snap at 6 points; this very lesson would make it.
  DragIntentModel model;
  model.learn(releasedAt(6), true, 1);
  EXPECT_EQ(model.ruleOnlyRight, 1);
  EXPECT_TRUE(model.learnedWouldSnap(releasedAt(6)));
}

TEST(DragIntentModelLesson, NeverScoresTheModelForASnapBeyondItsReach) {
  DragIntentModel model = sureOfSnapping();
  model.learn(releasedAt(24.000001), true, 1);
  EXPECT_EQ(model.modelOnlyRight, 0);
  EXPECT_EQ(model.ruleOnlyRight, 0);
}

TEST(DragIntentModelLesson, FadesBothScoresEvenWhereModelAndRuleAgree) {
  DragIntentModel model;
  model.modelOnlyRight = 10;
  model.ruleOnlyRight = 5;
  model.learn(releasedAt(1), true, 1);
  EXPECT_DOUBLE_EQ(model.modelOnlyRight, 9.99);
  EXPECT_DOUBLE_EQ(model.ruleOnlyRight, 4.995);
}

TEST(DragIntentModelLesson, FromAFollowUpIsThatFollowUpsLesson) {
  for (const DragFollowUp followUp : DragFollowUps::all()) {
    const auto lesson = DragFollowUps::lesson(followUp);
    DragIntentModel fromFollowUp;
    DragIntentModel fromLesson;
    fromFollowUp.learn(releasedAt(9), followUp);
    fromLesson.learn(releasedAt(9), lesson.snap, lesson.weight);
    EXPECT_EQ(fromFollowUp, fromLesson);
  }
}

TEST(DragIntentModelLesson, KeepsEveryWeightWithinFifteen) {
  DragIntentModel model;
  model.learn({20, 2000, 0.6, 1, true}, true, 1e6);
  EXPECT_EQ(model.weights, std::vector<double>(7, 15));
  model.learn({20, 2000, 0.6, 1, true}, false, 1e6);
  EXPECT_EQ(model.weights, std::vector<double>(7, -15));
}

TEST(DragIntentModelLesson, KeepsWeightsWithinBoundsWhateverWasReadFromAFile) {
  for (const std::int64_t updates :
       {std::int64_t{-80}, std::int64_t{-79}, std::numeric_limits<std::int64_t>::min()}) {
    DragIntentModel model;
    model.updates = updates;
    model.weights = {1e308, -1e308, 1e308, 0, 0, 0, 0};
    model.learn({12, 1000, 0.3, 0.5, true}, false, 1);
    for (const double weight : model.weights) EXPECT_LE(std::abs(weight), 15) << updates;
  }
}

TEST(DragIntentModelLesson, StepsLessTheMoreItHasLearntButNeverLessThanTheLeast) {
  const auto stepAfter = [](std::int64_t updates) {
    DragIntentModel model;
    model.updates = updates;
    model.learn({0, 0, 0, 1, false}, false, 1);
    const double error = -1 / (1 + std::exp(-3.0));
    return model.weights.at(4) / (error * 1.2);
  };
  EXPECT_DOUBLE_EQ(stepAfter(0), 0.35);
  EXPECT_DOUBLE_EQ(stepAfter(80), 0.175);
  EXPECT_GT(stepAfter(2253), 0.012);
  EXPECT_DOUBLE_EQ(stepAfter(2254), 0.012);
  EXPECT_DOUBLE_EQ(stepAfter(1'000'000), 0.012);
}

TEST(DragIntentModelLesson, LeavesAModelWithoutWeightsAsItIsButCounts) {
  DragIntentModel model;
  model.weights.clear();
  model.learn(releasedAt(2), true, 1);
  EXPECT_TRUE(model.weights.empty());
  EXPECT_EQ(model.averaged, DragIntentModel{}.averaged);
  EXPECT_EQ(model.updates, 1);
}

TEST(DragIntentModelLesson, IsForgottenByAReset) {
  DragIntentModel model = sureOfSnapping();
  model.trusted = true;
  model.learn(releasedAt(12), true, 1);
  model.reset();
  EXPECT_EQ(model, DragIntentModel{});
}

TEST(DragIntentModelDeathTest, EndsTheProgramForMoreWeightsThanADragHasFeatures) {
  DragIntentModel model;
  model.weights.assign(8, 0);
  model.averaged.assign(8, 0);
  EXPECT_DEATH(model.learn(releasedAt(2), true, 1), "Tilwin: .*weights");
}

TEST(DragIntentModelDeathTest, EndsTheProgramWhenTheCountOfLessonsRunsOver) {
  DragIntentModel model;
  model.updates = std::numeric_limits<std::int64_t>::max();
  EXPECT_DEATH(model.learn(releasedAt(2), true, 1), "Tilwin: .*lessons");
}

}  // namespace
}  // namespace tilwin
