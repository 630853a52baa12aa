// Several processes write one log at once.

#include <gmock/gmock.h>

#include <atomic>
#include <memory>
#include <thread>

#include "tests/core/drag/ShadowLogs.h"
#include "tests/core/support/ChildProcess.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;

constexpr int ofEachWriter = 100'000;  ///< numbers a writer has for its own

struct ShadowLogUnderFire : ShadowLogs {
  Shared<std::atomic<bool>> mayStart;

  /// As many processes, each of which appends so many records of its own, all at the same time.
  void writeAtOnce(int writers, int records) {
    std::vector<std::unique_ptr<ChildProcess>> processes;
    processes.reserve(static_cast<std::size_t>(writers));
    for (int writer = 0; writer < writers; ++writer) {
      processes.push_back(std::make_unique<ChildProcess>([&, writer] {
        while (!*mayStart) std::this_thread::yield();
        append(writer * ofEachWriter, writer * ofEachWriter + records - 1);
      }));
    }
    *mayStart = true;
    for (const auto& process : processes) EXPECT_TRUE(process->endsWell());
  }

  /// The numbers in the log, by writer and in the order of the log.
  [[nodiscard]] std::map<int, std::vector<int>> numbersByWriter() const {
    std::map<int, std::vector<int>> result;
    for (const int number : numbersIn(path)) result[number / ofEachWriter].push_back(number % ofEachWriter);
    return result;
  }
};

class TogetherUnderTheLimit : public ShadowLogUnderFire, public testing::WithParamInterface<int> {};

TEST_P(TogetherUnderTheLimit, LoseNothing) {
  const int writers = GetParam();
  const int each = 3200 / writers;
  writeAtOnce(writers, each);
  EXPECT_EQ(brokenLinesIn(path), 0U);
  const auto found = numbersByWriter();
  EXPECT_EQ(found.size(), static_cast<std::size_t>(writers));
  for (const auto& [writer, theirs] : found) EXPECT_EQ(theirs, numbers(0, each - 1)) << "writer " << writer;
  EXPECT_EQ(permissionsOf(path), fs::perms(0600));
}

INSTANTIATE_TEST_SUITE_P(Processes, TogetherUnderTheLimit, testing::Values(2, 4));

class TogetherOverTheLimit : public ShadowLogUnderFire, public testing::WithParamInterface<int> {};

TEST_P(TogetherOverTheLimit, KeepTheNewestOfEach) {
  const int writers = GetParam();
  constexpr int each = 3000;
  writeAtOnce(writers, each);
  EXPECT_EQ(brokenLinesIn(path), 0U);
  EXPECT_THAT(namesIn(folder.path()), testing::ElementsAre("shadow.jsonl"));
  const auto found = numbersByWriter();
  std::size_t all = 0;
  for (const auto& [writer, theirs] : found) {
    all += theirs.size();
    EXPECT_EQ(theirs, numbers(theirs.front(), each - 1)) << "the last of writer " << writer << ", in order";
  }
  EXPECT_GE(all, 4000U);
  EXPECT_LE(all, 5000U);
  // Each trim takes 1001 lines, and nothing else does.
  EXPECT_EQ((static_cast<std::size_t>(writers * each) - all) % 1001, 0U) << all << " lines";
}

INSTANTIATE_TEST_SUITE_P(Processes, TogetherOverTheLimit, testing::Values(2, 4));

TEST_F(ShadowLogUnderFire, ErasingByOneLeavesOthersWhatTheyWriteLater) {
  Shared<std::atomic<int>> written;
  ChildProcess writer([&] {
    ShadowLogFile log(path);
    for (int number = 0; number < 6000; ++number) {
      log.append(recordOf(number));
      log.drain();
      *written = number + 1;
    }
  });
  int erased = 0;
  {
    ShadowLogFile log(path);
    for (int round = 1; round <= 20; ++round) {
      while (*written < round * 250) std::this_thread::yield();
      erased = *written;
      log.erase();
    }
  }
  EXPECT_TRUE(writer.endsWell());
  const auto left = numbersIn(path);
  ASSERT_FALSE(left.empty());
  EXPECT_GE(left.front(), erased);
  EXPECT_EQ(left, numbers(left.front(), 5999));
  EXPECT_EQ(brokenLinesIn(path), 0U);
}

}  // namespace
}  // namespace tilwin
