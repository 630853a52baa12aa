// Says what the drag report tells four kinds of simulated users as their logs grow.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/drag/SimulatedUser.h"
#include "bench/drag/VerdictTable.h"

namespace tilwin {
namespace {

struct Options {
  std::string plot;                    ///< file to draw; empty for none
  int users = VerdictTable::allSeeds;  ///< of each kind
  SnapsBy by = SnapsBy::release;
};

std::optional<Options> options(int argc, char** argv) {
  Options chosen;
  for (int index = 1; index < argc; ++index) {
    const std::string_view argument = argv[index];
    if (argument == "--last-checked") {
      chosen.by = SnapsBy::lastChecked;
    } else if (argument == "--plot" && index + 1 < argc) {
      chosen.plot = argv[++index];
    } else if (argument == "--users" && index + 1 < argc) {
      chosen.users = std::atoi(argv[++index]);
    } else {
      return std::nullopt;
    }
  }
  return chosen.users > 0 ? std::optional(chosen) : std::nullopt;
}

std::vector<VerdictRow> simulate(const Options& chosen) {
  std::vector<VerdictRow> rows;
  for (std::size_t user = 0; user < SimulatedUser::all().size(); ++user) {
    const auto own = VerdictTable::of(user, VerdictTable::allDrags, chosen.users, chosen.by);
    rows.insert(rows.end(), own.begin(), own.end());
  }
  return rows;
}

int run(const Options& chosen) {
  const auto rows = simulate(chosen);
  std::fputs(VerdictTable::markdown(rows).c_str(), stdout);
  if (chosen.plot.empty()) return 0;
  std::ofstream file(chosen.plot, std::ios::binary);
  file << VerdictPlot::svg(rows, chosen.by) << std::flush;
  if (file) return 0;
  std::fprintf(stderr, "drag-simulation: cannot write %s\n", chosen.plot.c_str());
  return 1;
}

}  // namespace
}  // namespace tilwin

int main(int argc, char** argv) {
  const auto chosen = tilwin::options(argc, argv);
  if (chosen) return tilwin::run(*chosen);
  std::fputs(
      "usage: drag-simulation [--users NUMBER] [--last-checked] [--plot FILE.svg]\n"
      "  --last-checked  snap by the last place looked at before the release, as if it were not held back\n",
      stderr);
  return 2;
}
