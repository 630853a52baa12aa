#pragma once

#include <cstdint>
#include <optional>
#include <variant>

#include "core/support/Date.h"

namespace tilwin {

/// The counts from a drag log, and the verdict that follows from them.
struct ShadowSummary {
  static constexpr std::int64_t minDrags = 50;        ///< fewer give no verdict
  static constexpr std::int64_t minCorrections = 10;  ///< fewer are not enough to compare model and rule

  struct NotEnoughDrags {
    std::int64_t have = 0;
    std::int64_t need = 0;
    bool operator==(const NotEnoughDrags&) const = default;
  };
  /// The user corrects snaps so rarely that there is nothing to improve.
  struct TooFewCorrections {
    bool operator==(const TooFewCorrections&) const = default;
  };
  struct ModelWouldHelp {
    bool operator==(const ModelWouldHelp&) const = default;
  };
  struct RuleIsBetter {
    bool operator==(const RuleIsBetter&) const = default;
  };
  struct NoClearDifference {
    bool operator==(const NoClearDifference&) const = default;
  };
  using Verdict =
      std::variant<NotEnoughDrags, TooFewCorrections, ModelWouldHelp, RuleIsBetter, NoClearDifference>;

  std::int64_t candidates = 0;    ///< drags in the log; all ended near an edge
  std::int64_t ruleSnaps = 0;     ///< those that snapped
  std::int64_t corrected = 0;     ///< snaps undone
  std::int64_t keptSnaps = 0;     ///< snaps left as they were
  std::int64_t redragged = 0;     ///< missed snaps that the user then made
  std::int64_t leftAlone = 0;     ///< drags that did not snap and were left so
  std::int64_t modelDiffers = 0;  ///< drags on which the model decides differently
  std::int64_t modelRight = 0;    ///< of these, those where the user's correction agrees with the model
  std::int64_t ruleRight = 0;     ///< of these, those where the user's correction agrees with what was done
  bool modelTrusted = false;      ///< whether the model was trusted at the end
  std::optional<Date> firstDay{};
  std::optional<Date> lastDay{};

  bool operator==(const ShadowSummary&) const = default;

  [[nodiscard]] std::int64_t corrections() const { return corrected + redragged; }
  /// The share of snaps that were undone, 0 to 1; nothing if there were no snaps.
  [[nodiscard]] std::optional<double> falseSnapRate() const;
  /// The share of drags without a snap after which the user made it, 0 to 1; nothing if every drag snapped.
  [[nodiscard]] std::optional<double> missRate() const;
  /// How far the model is ahead of the rule, in standard errors of a sign test; 0 if no correction decides.
  [[nodiscard]] double evidence() const;
  /// Favouring the model needs stronger evidence than favouring the rule, which is in use already.
  [[nodiscard]] Verdict verdict() const;
};

}  // namespace tilwin
