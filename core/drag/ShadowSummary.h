#pragma once

#include <cstdint>
#include <optional>
#include <variant>

#include "core/support/Date.h"

namespace tilwin {

/// What a drag log comes to, and what follows from it.
struct ShadowSummary {
  static constexpr std::int64_t minDrags = 50;        ///< before there is any verdict
  static constexpr std::int64_t minCorrections = 10;  ///< before the model is compared with the rule

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

  std::int64_t candidates = 0;    ///< drags in the log, which all ended near an edge
  std::int64_t ruleSnaps = 0;     ///< those that snapped
  std::int64_t corrected = 0;     ///< snaps undone
  std::int64_t keptSnaps = 0;     ///< snaps that stood
  std::int64_t redragged = 0;     ///< snaps that were missed and made by hand
  std::int64_t leftAlone = 0;     ///< drags that did not snap, nothing done after
  std::int64_t modelDiffers = 0;  ///< drags on which the model would have decided otherwise
  std::int64_t modelRight = 0;    ///< of these, those after which the user agreed with the model
  std::int64_t ruleRight = 0;     ///< of these, those after which the user agreed with what was done
  bool modelTrusted = false;      ///< whether the model came to be trusted by the end
  std::optional<Date> firstDay{};
  std::optional<Date> lastDay{};

  bool operator==(const ShadowSummary&) const = default;

  [[nodiscard]] std::int64_t corrections() const { return corrected + redragged; }
  /// The share of snaps that were undone; nothing without a snap.
  [[nodiscard]] std::optional<double> falseSnapRate() const;
  /// The share of drags left without a snap after which it was made by hand; nothing without such a drag.
  [[nodiscard]] std::optional<double> missRate() const;
  /// How far the model is ahead of the rule, in standard errors of a sign test; 0 where they never differed.
  [[nodiscard]] double evidence() const;
  /// The model needs a stronger case than the rule, which is there already.
  [[nodiscard]] Verdict verdict() const;
};

}  // namespace tilwin
