#pragma once

#include <string>
#include <vector>

#include "core/drag/ShadowRecord.h"
#include "core/drag/ShadowSummary.h"

namespace tilwin {

/// Tells a user in plain words whether a drag model would have served better than the fixed rule.
struct ShadowReport {
  /// Replays the drags in order of time through a fresh model, which decides on each before it learns from it
  /// (prequential evaluation, Dawid 1984).
  [[nodiscard]] static ShadowSummary summarize(const std::vector<ShadowRecord>& records);
  /// Lines separated by line feeds, none after the last. Nothing in it depends on `now`.
  [[nodiscard]] static std::string text(const ShadowSummary& summary, Date now);
};

}  // namespace tilwin
