#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <map>

#include "core/support/AtomicFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/support/FileText.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;

const std::string oldContent(100'000, 'o');
const std::string newContent(150'000, 'n');

/// Replaces the file in a process that is killed when it enters or leaves a system call for the given time. A
/// file system changes at no other moments. False when the process got to its end before.
bool killedWhileReplacing(const fs::path& path, int atStop) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::raise(SIGSTOP);
    AtomicFile::replace(path, newContent);
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  for (int stop = 0; WIFSTOPPED(status) && stop < atStop; ++stop) {
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    ::waitpid(child, &status, 0);
  }
  if (!WIFSTOPPED(status)) return false;
  ::kill(child, SIGKILL);
  ::waitpid(child, &status, 0);
  return true;
}

TEST(AtomicFileCrash, AtAnyMomentLeavesTheOldContentOrTheNewWhole) {
  const TemporaryFolder folder;
  const fs::path path = folder.path() / "layouts.json";
  std::map<std::string, int> found;
  bool killed = true;
  for (int stop = 0; killed; ++stop) {
    writeText(path, oldContent);
    killed = killedWhileReplacing(path, stop);
    const std::string content = textOf(path);
    const bool isWhole = content == oldContent || content == newContent;
    ASSERT_TRUE(isWhole) << "after " << stop << " stops the file has " << content.size() << " bytes";
    ++found[content];
  }
  EXPECT_GE(found[oldContent], 5) << "killed before the new content was in place";
  EXPECT_GE(found[newContent], 2) << "killed after it, or not at all";
}

}  // namespace
}  // namespace tilwin
