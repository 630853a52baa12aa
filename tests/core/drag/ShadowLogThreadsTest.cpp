// Several threads use one log.

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "tests/core/drag/ShadowLogs.h"

namespace tilwin {
namespace {

struct ShadowLogThreads : ShadowLogs {
  static constexpr int each = 400;

  static void appendAll(ShadowLogFile& log, int writer) {
    for (int number = 0; number < each; ++number) log.append(recordOf(writer * each + number));
  }

  static std::vector<std::thread> startWriters(int count, ShadowLogFile& log) {
    std::vector<std::thread> threads;
    threads.reserve(static_cast<std::size_t>(count));
    for (int writer = 0; writer < count; ++writer)
      threads.emplace_back([&log, writer] { appendAll(log, writer); });
    return threads;
  }
};

TEST_F(ShadowLogThreads, AppendAtOnceAndLoseNothing) {
  {
    ShadowLogFile log(path);
    auto writers = startWriters(4, log);
    for (auto& writer : writers) writer.join();
  }
  auto found = numbersIn(path);
  std::stable_sort(found.begin(), found.end(), [](int one, int other) { return one / each < other / each; });
  EXPECT_EQ(found, numbers(0, 4 * each - 1));
}

TEST_F(ShadowLogThreads, AppendDrainEraseAndReadAtOnce) {
  ShadowLogFile log(path);
  std::atomic<bool> isOver = false;
  auto writers = startWriters(3, log);
  std::thread drainer([&] {
    while (!isOver) log.drain();
  });
  std::thread eraser([&] {
    for (int round = 0; round < 20; ++round) log.erase();
  });
  std::thread reader([&] {
    while (!isOver) {
      for (const int number : numbersIn(path)) EXPECT_LT(number, 3 * each);
    }
  });
  for (auto& writer : writers) writer.join();
  eraser.join();
  isOver = true;
  drainer.join();
  reader.join();
  log.erase();
  log.append(recordOf(7));
  log.drain();
  EXPECT_EQ(textOf(path), linesOf(7, 7));
}

TEST_F(ShadowLogThreads, TrimFromTwoLogsOfOneFile) {
  writeText(path, linesOf(0, 4899));
  {
    ShadowLogFile one(path);
    ShadowLogFile other(path);
    std::thread first([&] { appendAll(one, 100); });
    std::thread second([&] { appendAll(other, 101); });
    first.join();
    second.join();
  }
  EXPECT_EQ(brokenLinesIn(path), 0U);
  EXPECT_EQ(numbersIn(path).size(), 4900U + 2 * each - 1001);
}

}  // namespace
}  // namespace tilwin
