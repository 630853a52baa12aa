// Processes are killed as they write the log.

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <random>
#include <thread>

#include "tests/core/drag/ShadowLogs.h"
#include "tests/core/support/ChildProcess.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using testing::IsEmpty;

/// How long to go on killing: TILWIN_KILL_SECONDS, or two.
std::chrono::seconds killingTime() {
  const char* seconds = std::getenv("TILWIN_KILL_SECONDS");
  return std::chrono::seconds(seconds == nullptr ? 2 : std::atoi(seconds));
}

/// One log that writers, one after the other, count on in until they are killed.
struct ShadowLogKill : ShadowLogs {
  static constexpr int ofAWriter = 10'000;
  Shared<std::atomic<int>> drained;  ///< the newest number known to be written
  std::mt19937 random{20240305};
  std::size_t kills = 0;
  std::size_t size = 0;  ///< lines after the last kill

  void write() const {
    ShadowLogFile log(path);
    const int first = *drained + 1;
    for (int number = first; number < first + ofAWriter; ++number) {
      log.append(recordOf(number));
      // Mostly several wait in the queue.
      if (number % 5 != 0) continue;
      log.drain();
      *drained = number;
    }
  }

  /// A moment in terms of how far the writer has come, or in time, which may be anywhere in what it does.
  void waitForTheMoment(int start) {
    if (random() % 2 == 0) {
      const int moment = start + 5 + static_cast<int>(random() % 1500);
      const auto latest = Clock::now() + 30s;
      while (*drained < moment && Clock::now() < latest) std::this_thread::sleep_for(10us);
      ASSERT_GE(*drained, moment) << "the writer does not get on";
    }
    std::this_thread::sleep_for(std::chrono::microseconds(std::random_device()() % 20'000));
  }

  /// The numbers of the lines that are whole. Decoding thousands of lines after each kill would take longer
  /// than the killing.
  std::vector<int> wholeLines() {
    constexpr std::string_view before = "\"distance\":";
    const std::string content = textOf(path);
    std::vector<int> found;
    std::size_t broken = 0;
    for (const std::string_view line : LineFile::split(content)) {
      const auto at = line.find(before);
      const int number = at == std::string_view::npos ? -1 : std::atoi(line.data() + at + before.size());
      if (line == lineOf(number)) {
        found.push_back(number);
      } else {
        ++broken;
      }
    }
    EXPECT_LE(broken, kills) << "one line at most is cut short by each kill";
    return found;
  }

  /// What is left is the newest without a gap, all that a trim leaves at least, and the last that was
  /// drained.
  void expectNothingLost() {
    const auto left = wholeLines();
    ASSERT_FALSE(left.empty());
    ASSERT_EQ(left, numbers(left.front(), left.back()));
    ASSERT_GE(left.back(), *drained);
    ASSERT_TRUE(left.front() == 1 || left.size() + kills >= 4000) << left.size() << " left";
    ASSERT_LE(left.size(), std::max(size, std::size_t{5000}) + 1)
        << "more than a trim that was cut short leaves";
    size = left.size();
    *drained = left.back();
  }

  [[nodiscard]] bool isEnough() const { return kills >= 5 && *drained > 10'000; }
};

TEST_F(ShadowLogKill, AtAnyMomentLosesNothingThatWasDrained) {
  writeText(path, linesOf(1, 4000));
  *drained = 4000;
  const auto end = Clock::now() + killingTime();
  while ((Clock::now() < end || !isEnough()) && !HasFailure()) {
    const int start = *drained;
    ChildProcess writer([this] { write(); });
    waitForTheMoment(start);
    writer.kill();
    ++kills;
    expectNothingLost();
  }
  RecordProperty("kills", static_cast<int>(kills));
  const int last = *drained;
  append(last + 1, last + 1);
  EXPECT_EQ(numbersIn(path).back(), last + 1) << "a new process goes on at once";
  ShadowLogFile(path).erase();
  EXPECT_THAT(namesIn(folder.path()), IsEmpty()) << "no drafts are left behind";
}

}  // namespace
}  // namespace tilwin
