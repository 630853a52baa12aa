#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/drag/DragFeatures.h"
#include "core/drag/DragFollowUp.h"
#include "core/snap/DragZone.h"
#include "core/support/JsonError.h"

namespace tilwin {

/// Learns from what the user does after drags whether a window released near an edge was meant to snap, and
/// counts how often it is right where the fixed rule, which snaps within `todaysEdge`, is wrong. Online
/// logistic regression by stochastic gradient descent; decisions use the average of the weights over the
/// steps (Polyak and Juditsky 1992, with an exponential window). A sign test over the drags on which model
/// and rule disagree tells whether to trust the model. A plain value; only the drag report runs it.
struct DragIntentModel {
  /// Points; the model never snaps farther than this from an edge.
  static constexpr double reach = DragFeatures::nearEdge;
  static constexpr double todaysEdge = DragZone::edgeDepth;  ///< points; the rule snaps up to this distance
  /// The initial weights. At a distance of `todaysEdge`, which is a quarter of `reach`, they give a
  /// probability of exactly one half (3 - 12 / 4 = 0), so that an untrained model agrees with the rule
  /// everywhere but exactly there.
  static constexpr DragFeatures::Vector prior{3, -12, 0, 0, 0, 0, 0};

  std::vector<double> weights{prior.begin(), prior.end()};   ///< as in `DragFeatures::vector`
  std::int64_t updates = 0;                                  ///< lessons so far
  std::vector<double> averaged{prior.begin(), prior.end()};  ///< used for all decisions
  double modelOnlyRight = 0;  ///< sum of lesson weights where only the model was right; fades with time
  double ruleOnlyRight = 0;   ///< the same where only the rule was right
  bool trusted = false;       ///< whether the model decides instead of the rule

  bool operator==(const DragIntentModel&) const = default;

  /// The probability that a snap is meant, 0 to 1.
  [[nodiscard]] double probability(const DragFeatures& features) const;
  /// The decision of the model, trusted or not.
  [[nodiscard]] bool learnedWouldSnap(const DragFeatures& features) const;
  /// The decision of the model if it is trusted, else that of the rule.
  [[nodiscard]] bool shouldSnap(const DragFeatures& features) const;
  /// How far the model is ahead of the rule, in standard errors; 0 while there are too few disagreements.
  [[nodiscard]] double evidence() const;
  [[nodiscard]] bool isTrusted() const { return trusted; }

  /// Learns from one drag: `snap` is whether the user wanted a snap, `weight` how certain that is. Aborts the
  /// program if there are more weights than features or averages, or if `updates` overflows.
  void learn(const DragFeatures& features, bool snap, double weight);
  void learn(const DragFeatures& from, DragFollowUp followUp);
  void reset() { *this = {}; }

  /// As JSON; an error if a number is infinite or NaN.
  [[nodiscard]] std::variant<std::string, JsonError> encoded() const;
  /// Reads JSON made by `encoded`. Returns an untrained model if the text is invalid, the number of weights
  /// is wrong or a number is not finite.
  [[nodiscard]] static DragIntentModel decode(std::string_view data);

private:
  [[nodiscard]] static double rawProbability(const DragFeatures::Vector& input,
                                             const std::vector<double>& weights);
  void score(bool modelRight, bool ruleRight, double weight);
  void judgeTrust();
  void step(const DragFeatures::Vector& input, double target, double weight);
  [[nodiscard]] double learningRate() const;
  [[nodiscard]] bool isWhole() const;
};

}  // namespace tilwin
