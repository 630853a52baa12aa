#include "app/CommandLine.h"

#include <algorithm>
#include <array>

#include "core/drag/ShadowLogFile.h"
#include "core/drag/ShadowRecorder.h"
#include "core/drag/ShadowReport.h"

namespace tilwin {
namespace {

void printShadowReport(Bundle& bundle, std::ostream& output) {
  const auto log = ShadowLogFile::defaultURL(bundle.applicationSupport());
  if (!log) return;
  const ShadowSummary summary = ShadowReport::summarize(ShadowLogFile::read(*log));
  output << ShadowReport::text(summary, ShadowRecorder::systemClock()()) << '\n' << std::flush;
}

struct Mode {
  std::string_view argument;
  void (*act)(Bundle& bundle, std::ostream& output);
};

constexpr std::array modes = std::to_array<Mode>({
    {"--shadow-report", printShadowReport},
});

}  // namespace

std::optional<int> CommandLine::run(std::span<const char* const> arguments, Bundle& bundle,
                                    std::ostream& output) {
  for (const Mode& mode : modes) {
    if (std::find(arguments.begin(), arguments.end(), mode.argument) == arguments.end()) continue;
    mode.act(bundle, output);
    return 0;
  }
  return std::nullopt;
}

}  // namespace tilwin
