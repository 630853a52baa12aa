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

/// Learns from what a user does after drags whether a window let go near an edge was meant to snap, and keeps
/// score against the fixed rule, which snaps within `todaysEdge`. Online logistic regression by stochastic
/// gradient descent, with the weights that decide averaged over the steps (Polyak and Juditsky 1992, with an
/// exponential window); who decides is settled by a sign test over the drags on which the two disagree.
struct DragIntentModel {
  /// Points from an edge beyond which the model never snaps: the measure of what counts as near one.
  static constexpr double reach = DragFeatures::nearEdge;
  static constexpr double todaysEdge = DragZone::edgeDepth;  ///< points within which the rule snaps
  /// The weights to start with. With distances counted in units of the reach they put the probability at
  /// exactly one half where the rule's edge is, so that an untaught model agrees with the rule.
  static constexpr DragFeatures::Vector prior{3, -12, 0, 0, 0, 0, 0};

  std::vector<double> weights{prior.begin(), prior.end()};   ///< one per entry of `DragFeatures::vector`
  std::int64_t updates = 0;                                  ///< lessons so far
  std::vector<double> averaged{prior.begin(), prior.end()};  ///< all decisions are made by these
  double modelOnlyRight = 0;  ///< weight of the lessons on which the rule alone erred; old ones fade
  double ruleOnlyRight = 0;   ///< weight of those on which the model alone erred
  bool trusted = false;       ///< whether the model decides, rather than the rule

  bool operator==(const DragIntentModel&) const = default;

  /// That a snap is meant, 0 to 1.
  [[nodiscard]] double probability(const DragFeatures& features) const;
  [[nodiscard]] bool learnedWouldSnap(const DragFeatures& features) const;
  /// What the model decides once it is trusted, and until then the rule.
  [[nodiscard]] bool shouldSnap(const DragFeatures& features) const;
  /// How far the model is ahead of the rule, in standard errors; 0 while there is next to nothing to go by.
  [[nodiscard]] double evidence() const;
  [[nodiscard]] bool isTrusted() const { return trusted; }

  /// One lesson: whether the user wanted the window to snap, and how much that counts. Ends the program when
  /// the weights are more than the features have entries, or the count of lessons runs over.
  void learn(const DragFeatures& features, bool snap, double weight);
  void learn(const DragFeatures& from, DragFollowUp followUp);
  void reset() { *this = {}; }

  /// As JSON. Fails on numbers that JSON cannot express.
  [[nodiscard]] std::variant<std::string, JsonError> encoded() const;
  /// A fresh model for any text that is not a whole and finite one.
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
