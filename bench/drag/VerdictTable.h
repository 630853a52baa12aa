#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "bench/drag/DragSimulation.h"
#include "core/drag/ShadowSummary.h"

namespace tilwin {

/// The verdicts of the report for one kind of user after a number of drags, over many users of that kind.
struct VerdictRow {
  static constexpr std::size_t kinds = std::variant_size_v<ShadowSummary::Verdict>;

  std::size_t user = 0;               ///< in `SimulatedUser::all`
  std::size_t drags = 0;              ///< in each log
  std::array<int, kinds> verdicts{};  ///< number of users per verdict, in the order of `Verdict`
  int users = 0;
  double evidence = 0;  ///< for the model: mean, in standard errors

  bool operator==(const VerdictRow&) const = default;

  template <typename Verdict>
  [[nodiscard]] double share() const {
    return static_cast<double>(verdicts[ShadowSummary::Verdict(Verdict{}).index()]) / users;
  }
};

struct VerdictTable {
  static constexpr std::array<std::size_t, 4> allDrags{50, 200, 1000, 4000};
  static constexpr int allSeeds = 200;  ///< users of each kind
  /// In the order of `Verdict`.
  static constexpr std::array<std::string_view, VerdictRow::kinds> names{
      "not enough drags", "too few corrections", "model would help", "rule is better", "no clear difference"};

  /// One row for each number of drags, in increasing order. Each user's log is evaluated as it grows.
  [[nodiscard]] static std::vector<VerdictRow> of(std::size_t user, std::span<const std::size_t> drags,
                                                  int seeds, SnapsBy by);
  /// As a table in Markdown.
  [[nodiscard]] static std::string markdown(const std::vector<VerdictRow>& rows);
};

/// Draws the verdicts as stacked bars: a panel for each kind of user, a bar for each number of drags.
struct VerdictPlot {
  /// A complete SVG document. The rows of one kind of user must be consecutive, and all rows must have the
  /// same number of users. `by` goes into the caption.
  [[nodiscard]] static std::string svg(const std::vector<VerdictRow>& rows, SnapsBy by);
};

}  // namespace tilwin
