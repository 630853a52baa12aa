#include "core/drag/ShadowSummary.h"

#include <cmath>

namespace tilwin {
namespace {

constexpr double evidenceForModel = 2.5;
constexpr std::int64_t winsForModel = 8;
constexpr double evidenceForRule = -2.0;

std::optional<double> share(std::int64_t part, std::int64_t of) {
  if (of == 0) return std::nullopt;
  return static_cast<double>(part) / static_cast<double>(of);
}

}  // namespace

std::optional<double> ShadowSummary::falseSnapRate() const { return share(corrected, ruleSnaps); }

std::optional<double> ShadowSummary::missRate() const { return share(redragged, candidates - ruleSnaps); }

double ShadowSummary::evidence() const {
  const std::int64_t decided = modelRight + ruleRight;
  if (decided < 1) return 0;
  return static_cast<double>(modelRight - ruleRight) / std::sqrt(static_cast<double>(decided));
}

ShadowSummary::Verdict ShadowSummary::verdict() const {
  if (candidates < minDrags) return NotEnoughDrags{.have = candidates, .need = minDrags};
  if (corrections() < minCorrections) return TooFewCorrections{};
  if (evidence() >= evidenceForModel && modelRight >= winsForModel) return ModelWouldHelp{};
  if (evidence() <= evidenceForRule) return RuleIsBetter{};
  return NoClearDifference{};
}

}  // namespace tilwin
