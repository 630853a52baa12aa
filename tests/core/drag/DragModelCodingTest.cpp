#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <variant>

#include "tests/core/drag/Records.h"

namespace tilwin {
namespace {

const DragIntentModel fresh;

/// The JSON of a trained model with one part of the text replaced.
DragIntentModel readWith(const std::string& part, const std::string& replacement) {
  std::string text =
      R"({"weights":[1,2,3,4,5,6,7],"updates":12,"averaged":[7,6,5,4,3,2,1],"modelOnlyRight":2.5,)"
      R"("ruleOnlyRight":1,"trusted":true})";
  const std::size_t place = text.find(part);
  EXPECT_NE(place, std::string::npos);
  return DragIntentModel::decode(text.replace(place, part.size(), replacement));
}

std::string textOf(const DragIntentModel& model) {
  const auto text = model.encoded();
  return std::holds_alternative<std::string>(text) ? std::get<std::string>(text) : "";
}

TEST(DragModelJson, HoldsEveryFieldInOrder) {
  EXPECT_EQ(textOf(fresh), R"({"weights":[3,-12,0,0,0,0,0],"updates":0,"averaged":[3,-12,0,0,0,0,0],)"
                           R"("modelOnlyRight":0,"ruleOnlyRight":0,"trusted":false})");
}

TEST(DragModelJson, ReadsBackToTheSameModel) {
  DragIntentModel model;
  for (int lesson = 0; lesson < 100; ++lesson) {
    model.learn({lesson * 0.27, 13.7 * lesson, 0.003 * lesson, 0.71, lesson % 3 == 0},
                DragFollowUps::all()[static_cast<std::size_t>(lesson) % 4]);
  }
  EXPECT_EQ(DragIntentModel::decode(textOf(model)), model);
}

TEST(DragModelJson, TakesLessonsAndTrustAsTheyCome) {
  const DragIntentModel model = readWith("12", "-5");
  EXPECT_EQ(model.updates, -5);
  EXPECT_TRUE(model.trusted);
  EXPECT_EQ(model.weights.front(), 1);
}

TEST(DragModelJson, WithSixOrEightWeightsIsAFreshModel) {
  EXPECT_EQ(readWith("[1,2,3,4,5,6,7]", "[1,2,3,4,5,6]"), fresh);
  EXPECT_EQ(readWith("[1,2,3,4,5,6,7]", "[1,2,3,4,5,6,7,8]"), fresh);
  EXPECT_EQ(readWith("[7,6,5,4,3,2,1]", "[7,6,5,4,3,2]"), fresh);
  EXPECT_EQ(readWith("[7,6,5,4,3,2,1]", "[]"), fresh);
}

TEST(DragModelJson, WithANumberThatIsNotFiniteIsAFreshModel) {
  EXPECT_EQ(readWith("[1,2", "[NaN,2"), fresh);
  EXPECT_EQ(readWith("[1,2", "[1e999,2"), fresh);
  EXPECT_EQ(readWith("[7,6", "[7,-1e999"), fresh);
  EXPECT_EQ(readWith("2.5", "1e999"), fresh);
  EXPECT_EQ(readWith(R"("ruleOnlyRight":1)", R"("ruleOnlyRight":null)"), fresh);
}

TEST(DragModelJson, ThatIsBrokenOrLacksAFieldIsAFreshModel) {
  EXPECT_EQ(DragIntentModel::decode(""), fresh);
  EXPECT_EQ(DragIntentModel::decode("[]"), fresh);
  EXPECT_EQ(readWith("}", ""), fresh);
  EXPECT_EQ(readWith("12", "12.5"), fresh);
  EXPECT_EQ(readWith("true", "1"), fresh);
  EXPECT_EQ(readWith("trusted", "Trusted"), fresh);
}

TEST(DragModelJson, CannotHoldANumberThatIsNotFinite) {
  DragIntentModel model;
  model.weights.front() = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(std::holds_alternative<JsonError>(model.encoded()));
}

}  // namespace
}  // namespace tilwin
