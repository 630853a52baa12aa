#include "core/drag/ShadowReport.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <variant>

#include "core/drag/DragIntentModel.h"
#include "core/support/DecimalText.h"
#include "core/support/LocalizedDate.h"

namespace tilwin {
namespace {

using Counter = std::int64_t ShadowSummary::*;

/// One counter per follow-up, in the order of the enumerators.
constexpr std::array counters = std::to_array<Counter>({
    &ShadowSummary::corrected,
    &ShadowSummary::keptSnaps,
    &ShadowSummary::redragged,
    &ShadowSummary::leftAlone,
});

/// Lessons with less weight do not count: only a correction by the user shows who was right.
constexpr double fullWeight = 1;

void compare(ShadowSummary& summary, const ShadowRecord& record, bool decision) {
  if (decision == record.rule) return;
  ++summary.modelDiffers;
  const auto lesson = DragFollowUps::lesson(record.follow);
  if (lesson.weight < fullWeight) return;
  ++(decision == lesson.snap ? summary.modelRight : summary.ruleRight);
}

std::string percent(const std::optional<double>& rate) {
  return rate ? decimalText(*rate * 100, 0) + "%" : "n/a";
}

struct VerdictLine {
  const ShadowSummary& summary;

  std::string operator()(const ShadowSummary::NotEnoughDrags& verdict) const {
    return "not enough drags yet (" + std::to_string(verdict.have) + " of " + std::to_string(verdict.need) +
           " needed). Keep using Tilwin and run this again.";
  }
  std::string operator()(const ShadowSummary::TooFewCorrections&) const {
    return "you correct snaps rarely (" + std::to_string(summary.corrections()) +
           " so far), so today's rule seems to suit you. Nothing to change.";
  }
  std::string operator()(const ShadowSummary::ModelWouldHelp&) const {
    return "the learned model would have beaten today's rule on your own corrections. Worth turning on.";
  }
  std::string operator()(const ShadowSummary::RuleIsBetter&) const {
    return "today's rule did better than the learned model on your corrections. Leave it as it is.";
  }
  std::string operator()(const ShadowSummary::NoClearDifference&) const {
    return "no clear difference yet between the model and today's rule.";
  }
};

std::string snappedLine(const ShadowSummary& summary) {
  return "  Snapped by today's rule: " + std::to_string(summary.ruleSnaps) +
         "   (undone or moved away within seconds: " + std::to_string(summary.corrected) + ", " +
         percent(summary.falseSnapRate()) + "; left alone: " + std::to_string(summary.keptSnaps) + ")";
}

std::string notSnappedLine(const ShadowSummary& summary) {
  return "  Not snapped: " + std::to_string(summary.candidates - summary.ruleSnaps) +
         "   (then done by hand within seconds: " + std::to_string(summary.redragged) + ", " +
         percent(summary.missRate()) + " at least; left alone: " + std::to_string(summary.leftAlone) + ")";
}

std::string modelLine(const ShadowSummary& summary) {
  return "  Would have decided differently on " + std::to_string(summary.modelDiffers) +
         " drags; matched your correction where the rule did not on " + std::to_string(summary.modelRight) +
         ", the rule matched where the model did not on " + std::to_string(summary.ruleRight) + ".";
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text = lines.front();
  for (std::size_t index = 1; index < lines.size(); ++index) text.append("\n").append(lines[index]);
  return text;
}

}  // namespace

ShadowSummary ShadowReport::summarize(const std::vector<ShadowRecord>& records) {
  std::vector<const ShadowRecord*> inOrder(records.size());
  std::transform(records.begin(), records.end(), inOrder.begin(), [](const auto& each) { return &each; });
  std::stable_sort(inOrder.begin(), inOrder.end(),
                   [](const auto* first, const auto* second) { return first->at < second->at; });
  ShadowSummary summary;
  DragIntentModel model;
  for (const ShadowRecord* record : inOrder) {
    ++summary.candidates;
    if (record->rule) ++summary.ruleSnaps;
    ++(summary.*counters.at(static_cast<std::size_t>(record->follow)));
    compare(summary, *record, model.shouldSnap(record->features()));
    model.learn(record->features(), record->follow);
  }
  summary.modelTrusted = model.isTrusted();
  if (!inOrder.empty()) {
    summary.firstDay = inOrder.front()->at;
    summary.lastDay = inOrder.back()->at;
  }
  return summary;
}

std::string ShadowReport::text(const ShadowSummary& summary, Date /*now*/) {
  std::vector<std::string> lines{"Tilwin drag report (recorded on this Mac, never sent anywhere)"};
  if (summary.firstDay && summary.lastDay) {
    lines.push_back("Period: " + LocalizedDate::medium(*summary.firstDay) + " to " +
                    LocalizedDate::medium(*summary.lastDay));
  }
  lines.push_back("Drags that ended near a screen edge: " + std::to_string(summary.candidates));
  lines.push_back(snappedLine(summary));
  lines.push_back(notSnappedLine(summary));
  lines.emplace_back("Learned model, replayed over the same drags:");
  lines.push_back(modelLine(summary));
  lines.push_back("  Evidence for the model over the rule: " + decimalText(summary.evidence(), 1) +
                  " standard errors (about 2.5 or more is convincing).");
  lines.push_back("Verdict: " + std::visit(VerdictLine{summary}, summary.verdict()));
  return joined(lines);
}

}  // namespace tilwin
