// The system refuses what the log asks of it.

#include <gmock/gmock.h>
#include <sys/syscall.h>

#include <fstream>
#include <limits>

#include "tests/core/drag/ShadowLogs.h"
#include "tests/core/support/ChildProcess.h"
#include "tests/core/support/RefusedCalls.h"

namespace tilwin {
namespace {

using testing::ElementsAre;

struct ShadowLogRefusal : ShadowLogs {
  void appendWhere(const std::function<void()>& refuse, int first, int last) const {
    ChildProcess process([&] {
      refuse();
      append(first, last);
    });
    EXPECT_TRUE(process.endsWell());
  }
};

TEST_F(ShadowLogRefusal, OfRoomForTheTrimmedLogLeavesTheWholeOne) {
  writeText(path, linesOf(0, 4999));
  constexpr std::uint32_t farMoreThanALine = 65536;
  appendWhere([] { refuseCall(SYS_write, ENOSPC, farMoreThanALine); }, 5000, 5009);
  EXPECT_EQ(textOf(path), linesOf(0, 5009));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("shadow.jsonl"));
  append(5010, 5010);
  EXPECT_EQ(textOf(path), linesOf(1011, 5010)) << "with room again";
}

TEST_F(ShadowLogRefusal, ToFlushTheTrimmedLogLeavesTheWholeOne) {
  writeText(path, linesOf(0, 4999));
  appendWhere([] { refuseCall(SYS_fsync, ENOSPC); }, 5000, 5009);
  EXPECT_EQ(textOf(path), linesOf(0, 5009));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("shadow.jsonl"));
}

/// Bytes that this process has read so far.
std::size_t bytesRead() {
  std::ifstream counters("/proc/self/io");
  std::string name;
  std::size_t bytes = 0;
  counters >> name >> bytes;
  return name == "rchar:" ? bytes : std::numeric_limits<std::size_t>::max();
}

TEST_F(ShadowLogRefusal, OfATrimDoesNotMakeEveryLineReadTheWholeLogAgain) {
  writeText(path, linesOf(0, 4999));
  const std::size_t size = std::filesystem::file_size(path);
  Shared<std::size_t> read;
  ChildProcess process([&] {
    refuseCall(SYS_fsync, ENOSPC);
    ShadowLogFile log(path);
    log.append(recordOf(5000));
    log.drain();
    const std::size_t before = bytesRead();
    for (int number = 5001; number < 5100; ++number) log.append(recordOf(number));
    log.drain();
    *read = bytesRead() - before;
  });
  EXPECT_TRUE(process.endsWell());
  EXPECT_EQ(textOf(path), linesOf(0, 5099));
  EXPECT_LT(*read, size) << "bytes, for 99 lines";
}

TEST_F(ShadowLogRefusal, OfLocksLeavesTheLogInUseAndBounded) {
  writeText(path, linesOf(0, 4989));
  const auto start = std::chrono::steady_clock::now();
  appendWhere([] { refuseCall(SYS_flock, ENOLCK); }, 4990, 5009);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2))
      << "there is nothing to wait for";
  EXPECT_EQ(textOf(path), linesOf(1001, 5009));
}

}  // namespace
}  // namespace tilwin
