#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>

#include "tests/core/drag/ShadowLogs.h"
#include "tests/core/support/ChildProcess.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// A disk on which no file can grow beyond so many bytes: for child processes.
void limitFiles(rlim_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes;
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

struct ShadowLogFullDisk : ShadowLogs {
  Shared<std::array<char, 4096>> seen;  ///< the log as it was while the disk was full

  void see() const {
    const std::string text = textOf(path);
    std::copy(text.begin(), text.end(), seen->begin());
  }
};

TEST_F(ShadowLogFullDisk, LeavesTheLogAsItWasAndTakesRecordsOnceThereIsRoom) {
  writeText(path, linesOf(0, 2));
  ChildProcess process([&] {
    ShadowLogFile log(path);
    limitFiles(fs::file_size(path) + 50);
    log.append(recordOf(3));
    log.append(recordOf(4));
    log.drain();
    see();
    limitFiles(RLIM_INFINITY);
    log.append(recordOf(5));
    log.append(recordOf(6));
  });
  EXPECT_TRUE(process.endsWell());
  EXPECT_EQ(seen->data(), linesOf(0, 2));
  EXPECT_EQ(textOf(path), linesOf(0, 2) + linesOf(5, 6));
}

TEST_F(ShadowLogFullDisk, LeavesALineThatWasCutShortAsItWas) {
  const std::string before = linesOf(0, 2) + lineOf(3).substr(0, 70);
  writeText(path, before);
  ChildProcess process([&] {
    limitFiles(before.size() + 1);
    append(4, 4);
  });
  EXPECT_TRUE(process.endsWell());
  EXPECT_EQ(textOf(path), before);
}

TEST_F(ShadowLogFullDisk, KeepsCountOfTheLines) {
  writeText(path, linesOf(0, 4998));
  ChildProcess process([&] {
    ShadowLogFile log(path);
    limitFiles(fs::file_size(path) + 10);
    for (int number = 0; number < 10; ++number) log.append(recordOf(9000));
    log.drain();
    limitFiles(RLIM_INFINITY);
    log.append(recordOf(4999));
    log.drain();
    if (textOf(path) != linesOf(0, 4999)) ::_exit(2);
    log.append(recordOf(5000));
  });
  EXPECT_TRUE(process.endsWell());
  EXPECT_EQ(textOf(path), linesOf(1001, 5000));
}

TEST_F(ShadowLogFullDisk, LetsTheLogBeErased) {
  writeText(path, linesOf(0, 2));
  ChildProcess process([&] {
    limitFiles(0);
    ShadowLogFile(path).erase();
  });
  EXPECT_TRUE(process.endsWell());
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
}

struct ShadowLogReadOnly : ShadowLogFullDisk {
  static constexpr uid_t nobody = 65534;
  // What is read-only to others never is to root.
  const bool isRoot = ::geteuid() == 0;
};

TEST_F(ShadowLogReadOnly, FolderLeavesTheLogUntrimmed) {
  writeText(path, linesOf(0, 4999));
  if (isRoot) {
    ASSERT_EQ(::chown(path.c_str(), nobody, nobody), 0);
  }
  fs::permissions(folder.path(), fs::perms(0555));
  ChildProcess process([&] {
    if (isRoot && ::setuid(nobody) != 0) ::_exit(2);
    append(5000, 5009);
  });
  EXPECT_TRUE(process.endsWell());
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(textOf(path), linesOf(0, 5009));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("shadow.jsonl"));
}

TEST_F(ShadowLogReadOnly, FolderThatCanBeWrittenAgainLetsTheLogBeTrimmedAThousandLinesLater) {
  writeText(path, linesOf(0, 4999));
  if (isRoot) {
    ASSERT_EQ(::chown(path.c_str(), nobody, nobody), 0);
    ASSERT_EQ(::chown(folder.path().c_str(), nobody, nobody), 0);
  }
  fs::permissions(folder.path(), fs::perms(0500));
  ChildProcess process([&] {
    if (isRoot && ::setuid(nobody) != 0) ::_exit(2);
    ShadowLogFile log(path);
    log.append(recordOf(5000));
    log.drain();
    fs::permissions(folder.path(), fs::perms(0700));
    for (int number = 5001; number <= 6000; ++number) log.append(recordOf(number));
    log.drain();
    if (textOf(path) != linesOf(0, 6000)) ::_exit(3);
    log.append(recordOf(6001));
  });
  EXPECT_TRUE(process.endsWell());
  EXPECT_EQ(textOf(path), linesOf(2002, 6001));
}

}  // namespace
}  // namespace tilwin
