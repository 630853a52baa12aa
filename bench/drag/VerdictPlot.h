#pragma once

#include <string>
#include <vector>

#include "bench/drag/VerdictTable.h"

namespace tilwin {

/// Draws the verdicts as stacked bars: a panel for each kind of user, a bar for each number of drags.
struct VerdictPlot {
  /// A whole SVG document. The rows of one kind of user stand together, and all are of as many users, whose
  /// windows snapped as told.
  [[nodiscard]] static std::string svg(const std::vector<VerdictRow>& rows, DragSimulation::SnapsBy by);
};

}  // namespace tilwin
