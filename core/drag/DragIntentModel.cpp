#include "core/drag/DragIntentModel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <tuple>
#include <utility>

#include "core/support/Fatal.h"
#include "core/support/JsonCoding.h"

namespace tilwin {
namespace {

/// Learning rate of each weight, and how strongly it is pulled back to its initial value.
constexpr DragFeatures::Vector rate{0.25, 0.4, 1.6, 1.4, 1.2, 2.2, 2.2};
constexpr DragFeatures::Vector pull{0.05, 0.05, 0.002, 0.002, 0.002, 0.002, 0.002};

constexpr double largestWeight = 15;
constexpr double averaging = 0.02;  ///< share by which the averages move toward the weights in one lesson
constexpr double fading = 0.999;    ///< factor on both scores in each lesson

constexpr double firstRate = 0.35;
constexpr double lastRate = 0.012;
constexpr double slowing = 80;  ///< lessons after which the learning rate is half of `firstRate`

// Trust needs strong evidence, and is lost as soon as the rule is half a standard error ahead.
constexpr std::int64_t lessonsForTrust = 40;
constexpr double scoreForTrust = 20;
constexpr double evidenceForTrust = 2.5;
constexpr double evidenceAgainstTrust = -0.5;
constexpr double leastScore = 1;  ///< below this sum of both scores the evidence counts as 0

}  // namespace

template <>
struct JsonFields<DragIntentModel> {
  static constexpr auto table = std::make_tuple(JsonField{"weights", &DragIntentModel::weights},
                                                JsonField{"updates", &DragIntentModel::updates},
                                                JsonField{"averaged", &DragIntentModel::averaged},
                                                JsonField{"modelOnlyRight", &DragIntentModel::modelOnlyRight},
                                                JsonField{"ruleOnlyRight", &DragIntentModel::ruleOnlyRight},
                                                JsonField{"trusted", &DragIntentModel::trusted});
};

double DragIntentModel::rawProbability(const DragFeatures::Vector& input,
                                       const std::vector<double>& weights) {
  double sum = 0;
  for (std::size_t index = 0; index < std::min(input.size(), weights.size()); ++index)
    sum += weights[index] * input[index];
  return 1 / (1 + std::exp(-sum));
}

double DragIntentModel::probability(const DragFeatures& features) const {
  return rawProbability(features.vector(), averaged);
}

bool DragIntentModel::learnedWouldSnap(const DragFeatures& features) const {
  return !(features.distance > reach) && probability(features) > 0.5;
}

bool DragIntentModel::shouldSnap(const DragFeatures& features) const {
  return trusted ? learnedWouldSnap(features) : features.distance <= todaysEdge;
}

double DragIntentModel::evidence() const {
  const double score = modelOnlyRight + ruleOnlyRight;
  return score < leastScore ? 0 : (modelOnlyRight - ruleOnlyRight) / std::sqrt(score);
}

void DragIntentModel::learn(const DragFeatures& features, bool snap, double weight) {
  const bool ruleRight = (features.distance <= todaysEdge) == snap;
  const bool modelRight = learnedWouldSnap(features) == snap;
  score(modelRight, ruleRight, weight);
  judgeTrust();
  step(features.vector(), snap ? 1.0 : 0.0, weight);
  if (updates == std::numeric_limits<std::int64_t>::max()) fatal("a drag model has had too many lessons");
  ++updates;
}

void DragIntentModel::learn(const DragFeatures& from, DragFollowUp followUp) {
  const auto lesson = DragFollowUps::lesson(followUp);
  learn(from, lesson.snap, lesson.weight);
}

void DragIntentModel::score(bool modelRight, bool ruleRight, double weight) {
  modelOnlyRight *= fading;
  ruleOnlyRight *= fading;
  if (modelRight && !ruleRight) modelOnlyRight += weight;
  if (ruleRight && !modelRight) ruleOnlyRight += weight;
}

void DragIntentModel::judgeTrust() {
  if (trusted) {
    trusted = !(evidence() < evidenceAgainstTrust);
  } else {
    trusted = updates >= lessonsForTrust && modelOnlyRight + ruleOnlyRight >= scoreForTrust &&
              evidence() >= evidenceForTrust;
  }
}

double DragIntentModel::learningRate() const {
  return std::max(firstRate / (1 + static_cast<double>(updates) / slowing), lastRate);
}

void DragIntentModel::step(const DragFeatures::Vector& input, double target, double weight) {
  if (weights.empty()) return;
  if (weights.size() > prior.size() || weights.size() > averaged.size())
    fatal("a drag model has weights that stand for nothing");
  const double error = target - rawProbability(input, weights);
  const double speed = learningRate();
  for (std::size_t index = 0; index < weights.size(); ++index) {
    double& live = weights[index];
    const double moved = live + input[index] * error * speed * rate[index] * weight -
                         speed * pull[index] * (live - prior[index]);
    live = std::isnan(moved) ? prior[index] : std::clamp(moved, -largestWeight, largestWeight);
    averaged[index] += (live - averaged[index]) * averaging;
  }
}

std::variant<std::string, JsonError> DragIntentModel::encoded() const { return encodeJson(*this); }

bool DragIntentModel::isWhole() const {
  const auto areFinite = [](const std::vector<double>& numbers) {
    return std::all_of(numbers.begin(), numbers.end(), [](double each) { return std::isfinite(each); });
  };
  return weights.size() == prior.size() && averaged.size() == prior.size() && areFinite(weights) &&
         areFinite(averaged) && std::isfinite(modelOnlyRight) && std::isfinite(ruleOnlyRight);
}

DragIntentModel DragIntentModel::decode(std::string_view data) {
  auto decoded = decodeJson<DragIntentModel>(data);
  auto* const model = std::get_if<DragIntentModel>(&decoded);
  return model != nullptr && model->isWhole() ? std::move(*model) : DragIntentModel{};
}

}  // namespace tilwin
