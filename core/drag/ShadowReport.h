#pragma once

#include <string>
#include <vector>

#include "core/drag/ShadowRecord.h"
#include "core/drag/ShadowSummary.h"

namespace tilwin {

/// Compares the drag model with the fixed rule on the user's own log, and describes the result in words.
struct ShadowReport {
  /// Replays the drags in order of time through an untrained model, which decides on each drag before it
  /// learns from it (prequential evaluation, Dawid 1984).
  [[nodiscard]] static ShadowSummary summarize(const std::vector<ShadowRecord>& records);
  /// Lines separated by line feeds, without one at the end. `now` is not used.
  [[nodiscard]] static std::string text(const ShadowSummary& summary, Date now);
};

}  // namespace tilwin
