#include "tests/desktop/TilwinProcess.h"

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// Logs are appended to, and each start looks for its own line.
std::string nextLogName() {
  static int starts = 0;
  return "tilwin-" + std::to_string(++starts);
}

}  // namespace

TilwinProcess::TilwinProcess(Session& session, const std::filesystem::path& executable)
    : process_(session.start(nextLogName(), {executable.string()})) {
  const bool ready = session.desktop().waitUntil(
      [this] { return !process_.running() || log().find("shortcuts work") != std::string::npos; },
      startTimeout);
  if (!ready || !process_.running()) throw HarnessError("Tilwin did not start: " + lastLines(log(), 20));
}

}  // namespace tilwin::desktop
