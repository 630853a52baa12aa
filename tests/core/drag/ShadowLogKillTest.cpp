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
  Shared<std::atomic<int>> drained;  ///< the newest number known to be written, 0 before the first
  std::mt19937 random{20240305};

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
      const int moment = start + 5 + static_cast<int>(random() % 3000);
      const auto latest = Clock::now() + 30s;
      while (*drained < moment && Clock::now() < latest) std::this_thread::sleep_for(10us);
      ASSERT_GE(*drained, moment) << "the writer does not get on";
    }
    std::this_thread::sleep_for(std::chrono::microseconds(std::random_device()() % 20'000));
  }

  /// What is left is the newest without a gap, all that a trim leaves at least, and the last that was
  /// drained.
  void expectNothingLost() {
    const auto left = numbersIn(path);
    const int known = *drained;
    ASSERT_TRUE(known == 0 || !left.empty());
    if (left.empty()) return;
    ASSERT_EQ(left, numbers(left.front(), left.back()));
    ASSERT_GE(left.back(), known);
    ASSERT_TRUE(left.front() == 1 || left.size() >= 4000) << left.size() << " left";
    ASSERT_LE(left.size(), 5001U) << "more than a trim that was cut short leaves";
    ASSERT_EQ(brokenLinesIn(path), 0U) << "a kill does not divide the writing of a line";
    *drained = left.back();
  }
};

TEST_F(ShadowLogKill, AtAnyMomentLosesNothingThatWasDrained) {
  int kills = 0;
  for (const auto end = Clock::now() + killingTime(); Clock::now() < end && !HasFatalFailure(); ++kills) {
    const int start = *drained;
    ChildProcess writer([this] { write(); });
    waitForTheMoment(start);
    writer.kill();
    expectNothingLost();
  }
  EXPECT_GE(kills, 5);
  EXPECT_GT(*drained, 5000) << "too few for a trim";
  RecordProperty("kills", kills);
  const int last = *drained;
  append(last + 1, last + 1);
  EXPECT_EQ(numbersIn(path).back(), last + 1) << "a new process goes on at once";
  ShadowLogFile(path).erase();
  EXPECT_THAT(namesIn(folder.path()), IsEmpty()) << "no drafts are left behind";
}

}  // namespace
}  // namespace tilwin
