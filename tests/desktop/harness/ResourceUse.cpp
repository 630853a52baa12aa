#include "tests/desktop/harness/ResourceUse.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace tilwin::desktop {

namespace {

/// The number after a label; nothing when the file or the label is missing.
std::optional<std::int64_t> numberIn(const std::filesystem::path& file, const std::string& label) {
  std::ifstream lines(file);
  for (std::string word; lines >> word;) {
    std::int64_t number = 0;
    if (word == label && lines >> number) return number;
  }
  return std::nullopt;
}

/// Adds the times of a thread: running, then ready to run.
void addTimes(const std::filesystem::path& schedstat, ResourceUse& use) {
  std::int64_t running = 0;
  std::int64_t waiting = 0;
  if (!(std::ifstream(schedstat) >> running >> waiting)) return;
  use.processorTime += running;
  use.waitingTime += waiting;
}

}  // namespace

std::optional<ResourceUse> useOf(pid_t process) {
  const auto folder = std::filesystem::path("/proc") / std::to_string(process);
  const auto memory = numberIn(folder / "smaps_rollup", "Pss:");
  if (!memory) return std::nullopt;
  ResourceUse use{.proportionalKiB = *memory};
  std::error_code gone;
  for (const auto& thread : std::filesystem::directory_iterator(folder / "task", gone)) {
    ++use.threads;
    use.wakeUps += numberIn(thread.path() / "status", "voluntary_ctxt_switches:").value_or(0);
    addTimes(thread.path() / "schedstat", use);
  }
  return use;
}

}  // namespace tilwin::desktop
