// Any bytes as a stored drag model: what comes of them is whole, and can be taught.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "core/drag/DragIntentModel.h"
#include "fuzz/Require.h"

namespace tilwin {
namespace {

bool areFinite(const std::vector<double>& numbers) {
  return std::all_of(numbers.begin(), numbers.end(), [](double each) { return std::isfinite(each); });
}

void checkWhole(const DragIntentModel& model) {
  require(model.weights.size() == 7 && model.averaged.size() == 7, "a model has not seven weights");
  require(areFinite(model.weights) && areFinite(model.averaged), "a weight is not finite");
  require(std::isfinite(model.modelOnlyRight) && std::isfinite(model.ruleOnlyRight), "a score is not finite");
}

std::string written(const DragIntentModel& model) {
  auto text = model.encoded();
  require(std::holds_alternative<std::string>(text), "a model that was read cannot be written");
  return std::get<std::string>(std::move(text));
}

void checkReadsBack(const DragIntentModel& model) {
  const std::string text = written(model);
  const auto back = DragIntentModel::decode(text);
  require(back == model, "a model changes by being written and read");
  require(written(back) == text, "the same model is written in two ways");
}

void checkLearns(DragIntentModel model) {
  const std::vector<DragFeatures> drags{{},
                                        {.distance = 6, .speed = 300, .dwell = 0.2, .settled = 0.9},
                                        {.distance = 24, .speed = 5000, .neighbour = true},
                                        {.distance = 1e308, .speed = -1e308, .dwell = 1e308, .settled = -1}};
  for (const DragFeatures& drag : drags) {
    for (const DragFollowUp followUp : DragFollowUps::all()) {
      if (model.updates == std::numeric_limits<std::int64_t>::max()) return;
      const std::int64_t before = model.updates;
      model.learn(drag, followUp);
      require(model.updates == before + 1, "a lesson is not counted");
      checkWhole(model);
      require(std::all_of(model.weights.begin(), model.weights.end(),
                          [](double weight) { return std::abs(weight) <= 15; }),
              "a weight is out of bounds");
      require(!model.learnedWouldSnap({.distance = 24.000001}), "a model reaches too far");
    }
  }
  checkReadsBack(model);
}

}  // namespace
}  // namespace tilwin

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const auto model = tilwin::DragIntentModel::decode(text);
  tilwin::checkWhole(model);
  tilwin::checkReadsBack(model);
  tilwin::checkLearns(model);
  return 0;
}
