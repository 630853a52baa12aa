// A signal arrives while a file is read or written: some file systems then end the call early.

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <functional>
#include <stdexcept>

#include "core/support/AtomicFile.h"
#include "core/support/LineFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/support/ChildProcess.h"
#include "tests/core/support/FileText.h"
#include "tests/core/support/InterruptedCalls.h"

namespace tilwin {
namespace {

struct Interrupted : testing::Test {
  TemporaryFolder folder;
  std::filesystem::path path = folder.path() / "file";
};

/// In a process whose first call of that kind is interrupted.
void expectTrue(long call, const std::function<bool()>& deed) {
  const auto outcome = inChild([&] {
    interruptNext(call);
    if (!deed()) throw std::runtime_error("not as it should be");
  });
  EXPECT_EQ(outcome, ChildOutcome::done);
}

TEST_F(Interrupted, AReplacedFileHasTheWholeNewContent) {
  writeText(path, "old");
  expectTrue(SYS_write, [&] {
    AtomicFile::replace(path, "new");
    return true;
  });
  EXPECT_EQ(textOf(path), "new");
}

TEST_F(Interrupted, AFileIsReadWhole) {
  writeText(path, "all of it");
  expectTrue(SYS_read, [&] { return AtomicFile::read(path, 100) == "all of it"; });
}

TEST_F(Interrupted, ALineIsAppendedWhole) {
  writeText(path, "one\n");
  expectTrue(SYS_write, [&] { return LineFile::take(path)->append("two"); });
  EXPECT_EQ(textOf(path), "one\ntwo\n");
}

TEST_F(Interrupted, LinesAreReadWhole) {
  writeText(path, "one\ntwo\n");
  expectTrue(SYS_pread64, [&] { return LineFile::read(path) == "one\ntwo\n"; });
}

}  // namespace
}  // namespace tilwin
