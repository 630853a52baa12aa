#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

#include "core/support/LineFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/support/ChildProcess.h"
#include "tests/core/support/FileText.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

struct LineFileTurns : testing::Test {
  TemporaryFolder folder;
  fs::path path = folder.path() / "log.jsonl";
};

TEST_F(LineFileTurns, WaitForWhoeverHasOne) {
  ChildProcess holder([&] {
    auto file = LineFile::take(path);
    ::raise(SIGSTOP);
    file->append("of the holder");
  });
  ASSERT_TRUE(holder.waitForStop());
  ChildProcess waiting([&] {
    auto file = LineFile::take(path);
    if (!file->isHeldAlone()) ::_exit(2);
    file->append("of the one that waited");
  });
  ::kill(holder.id(), SIGCONT);
  EXPECT_TRUE(waiting.endsWell());
  EXPECT_TRUE(holder.endsWell());
  EXPECT_EQ(textOf(path), "of the holder\nof the one that waited\n");
}

TEST_F(LineFileTurns, DoNotWaitForAStoppedHolderBeyondTwoSeconds) {
  ChildProcess holder([&] {
    const auto file = LineFile::take(path);
    ::raise(SIGSTOP);
  });
  ASSERT_TRUE(holder.waitForStop());
  const auto start = Clock::now();
  auto file = LineFile::take(path);
  const auto waited = Clock::now() - start;
  ASSERT_TRUE(file);
  EXPECT_FALSE(file->isHeldAlone());
  EXPECT_TRUE(file->append("one"));
  EXPECT_GE(waited, 1900ms);
  EXPECT_LE(waited, 4s);
  EXPECT_EQ(textOf(path), "one\n");
}

TEST_F(LineFileTurns, EndWithTheProcessHoweverItEnds) {
  ChildProcess holder([&] {
    const auto file = LineFile::take(path);
    ::raise(SIGSTOP);
  });
  ASSERT_TRUE(holder.waitForStop());
  holder.kill();
  EXPECT_TRUE(LineFile::take(path).value().isHeldAlone());
}

/// Whoever waits for a file that is then replaced or removed must write to the one that is there now.
struct LineFileChanges : LineFileTurns {
  Shared<std::atomic<bool>> mayAsk;
  Shared<std::atomic<bool>> isAsking;

  void addWhile(const std::function<void()>& change) {
    // Made before the turn is had, which a process made later would share.
    ChildProcess waiting([&] {
      while (!*mayAsk) std::this_thread::yield();
      *isAsking = true;
      auto file = LineFile::take(path);
      if (!file->isHeldAlone() || !file->append("late")) ::_exit(2);
    });
    auto holder = LineFile::take(path);
    *mayAsk = true;
    while (!*isAsking) std::this_thread::yield();
    // Long enough for it to have opened the old file; were it not, the test would still hold.
    std::this_thread::sleep_for(20ms);
    change();
    holder.reset();
    EXPECT_TRUE(waiting.endsWell());
  }
};

TEST_F(LineFileChanges, GoToTheFileThatTookTheOldOnesPlace) {
  addWhile([&] {
    writeText(folder.path() / "new", "new\n");
    fs::rename(folder.path() / "new", path);
  });
  EXPECT_EQ(textOf(path), "new\nlate\n");
}

TEST_F(LineFileChanges, GoToANewFileWhenTheOldOneIsRemoved) {
  addWhile([&] { fs::remove(path); });
  EXPECT_EQ(textOf(path), "late\n");
}

TEST_F(LineFileTurns, OfManyProcessesAreAllHad) {
  constexpr int each = 1000;
  const auto write = [&] {
    for (int number = 0; number < each; ++number) {
      auto file = LineFile::take(path);
      if (!file || !file->isHeldAlone() || !file->append("a line")) ::_exit(2);
    }
  };
  ChildProcess one(write);
  ChildProcess two(write);
  ChildProcess three(write);
  ChildProcess four(write);
  for (auto* process : {&one, &two, &three, &four}) EXPECT_TRUE(process->endsWell());
  EXPECT_EQ(LineFile::take(path).value().count(), std::size_t{4} * each);
}

}  // namespace
}  // namespace tilwin
