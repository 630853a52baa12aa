#include <gtest/gtest.h>

#include <map>

#include "core/support/AtomicFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/support/FileText.h"
#include "tests/core/support/TracedProcess.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;

const std::string oldContent(100'000, 'o');
const std::string newContent(150'000, 'n');

/// Replaces the file in a process that is killed at a stop. False when the process got to its end before.
bool killedWhileReplacing(const fs::path& path, int atStop) {
  TracedProcess process([&] { AtomicFile::replace(path, newContent); });
  for (int stop = 0; stop < atStop; ++stop) {
    if (!process.goOn()) return false;
  }
  process.kill();
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
