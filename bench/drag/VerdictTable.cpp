#include "bench/drag/VerdictTable.h"

#include <algorithm>

#include "bench/drag/SimulatedUser.h"
#include "core/drag/ShadowReport.h"
#include "core/support/DecimalText.h"

namespace tilwin {
namespace {

void add(VerdictRow& row, const ShadowSummary& summary) {
  ++row.verdicts.at(summary.verdict().index());
  ++row.users;
  row.evidence += (summary.evidence() - row.evidence) / row.users;
}

}  // namespace

std::vector<VerdictRow> VerdictTable::of(std::size_t user, std::span<const std::size_t> drags, int seeds,
                                         SnapsBy by) {
  std::vector<VerdictRow> rows;
  for (const std::size_t count : drags) rows.push_back({.user = user, .drags = count});
  for (int seed = 0; seed < seeds; ++seed) {
    auto log = DragSimulation::log(user, static_cast<std::uint32_t>(seed), drags.back(), by);
    for (std::size_t index = rows.size(); index > 0; --index) {
      log.resize(drags[index - 1]);
      add(rows[index - 1], ShadowReport::summarize(log));
    }
  }
  return rows;
}

std::string VerdictTable::markdown(const std::vector<VerdictRow>& rows) {
  std::string head = "| user | drags |";
  std::string line = "|---|---:|";
  for (const std::string_view name : names) {
    head.append(" ").append(name).append(" |");
    line += "---:|";
  }
  std::string text = head + " mean z |\n" + line + "---:|\n";
  for (const VerdictRow& row : rows) {
    text.append("| ").append(SimulatedUser::all()[row.user].name).append(" | ");
    text.append(std::to_string(row.drags)).append(" |");
    for (const int count : row.verdicts)
      text.append(" ").append(decimalText(100.0 * count / row.users, 1)).append(" % |");
    text.append(" ").append(decimalText(row.evidence, 1)).append(" |\n");
  }
  return text;
}

}  // namespace tilwin
