// Processes are stopped and killed at every system call of a record that makes a trim due.

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include "tests/core/drag/ShadowLogs.h"
#include "tests/core/support/TracedProcess.h"

namespace tilwin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ShadowLogCrash : ShadowLogs {
  const std::string before = linesOf(0, 4999);
  const std::string appended = linesOf(0, 5000);
  const std::string trimmed = linesOf(1001, 5000);

  /// Appends the record that makes the trim due.
  [[nodiscard]] std::function<void()> appendAndTrim() const {
    return [this] { append(5000, 5000); };
  }

  /// False when the process got to its end before that stop.
  [[nodiscard]] bool killedAt(int stop) const {
    TracedProcess process(appendAndTrim());
    for (int count = 0; count < stop; ++count) {
      if (!process.goOn()) return false;
    }
    process.kill();
    return true;
  }
};

TEST_F(ShadowLogCrash, AtAnyMomentLeavesTheLogWholeAndReadyToGoOn) {
  const std::map<std::string, std::string> andOneMore{{before, linesOf(1001, 4999) + linesOf(6000, 6000)},
                                                      {appended, linesOf(1002, 5000) + linesOf(6000, 6000)},
                                                      {trimmed, trimmed + linesOf(6000, 6000)}};
  std::map<std::string, int> found;
  int withDraft = 0;
  bool killed = true;
  for (int stop = 0; killed; ++stop) {
    writeText(path, before);
    killed = killedAt(stop);
    const std::string content = textOf(path);
    ASSERT_TRUE(andOneMore.contains(content))
        << "after " << stop << " stops there are " << content.size() << " bytes";
    ++found[content];
    if (namesIn(folder.path()).size() > 1) ++withDraft;
    append(6000, 6000);
    const bool isWhole = textOf(path) == andOneMore.at(content);
    ASSERT_TRUE(isWhole) << "after " << stop << " stops";
    ASSERT_THAT(namesIn(folder.path()), ElementsAre("shadow.jsonl"));
  }
  EXPECT_GE(found[before], 5);
  EXPECT_GE(found[appended], 5);
  EXPECT_GE(found[trimmed], 2);
  EXPECT_GE(withDraft, 3) << "drafts were there to be removed";
}

/// What is readable to others for a moment, even before anything is in it, they can keep open and read later.
TEST_F(ShadowLogCrash, AtNoMomentIsAnythingForOthersToOpen) {
  const mode_t usual = ::umask(0);
  for (const int lines : {0, 5000}) {
    if (lines > 0) {
      writeText(path, linesOf(0, lines - 1));
      std::filesystem::permissions(path, std::filesystem::perms(0600));
    }
    int looks = 0;
    TracedProcess process([&] { append(lines, lines); });
    while (process.goOn()) {
      for (const std::string& name : namesIn(folder.path())) {
        const auto found = std::filesystem::status(folder.path() / name);
        // Another thread than the one that stopped may just have moved it.
        if (found.type() == std::filesystem::file_type::not_found) continue;
        ++looks;
        ASSERT_EQ(found.permissions(), std::filesystem::perms(0600)) << name;
      }
    }
    EXPECT_GT(looks, 20);
  }
  ::umask(usual);
  EXPECT_EQ(textOf(path), trimmed);
}

TEST_F(ShadowLogCrash, NeverFindsALineInALogThatOthersCanRead) {
  writeText(path, linesOf(0, 2));
  std::filesystem::permissions(path, std::filesystem::perms(0644));
  TracedProcess process([this] { append(3, 3); });
  while (process.goOn() && permissionsOf(path) != std::filesystem::perms(0600)) continue;
  EXPECT_EQ(permissionsOf(path), std::filesystem::perms(0600));
  EXPECT_EQ(textOf(path), linesOf(0, 2)) << "nothing was written before";
  while (process.goOn()) continue;
  EXPECT_EQ(textOf(path), linesOf(0, 3));
}

/// Others do not wait for a process that is stopped in its trim; what they do must stay done once it goes on.
struct ShadowLogStop : ShadowLogCrash {
  void whileStoppedInTrim(const std::function<void()>& deed) const {
    writeText(path, before);
    TracedProcess process(appendAndTrim());
    ASSERT_TRUE(process.goOnTo(SYS_fsync)) << "the draft is written, and not yet in place";
    deed();
    while (process.goOn()) continue;
  }
};

TEST_F(ShadowLogStop, InATrimLosesNothingThatOthersAppend) {
  whileStoppedInTrim([this] { append(6000, 6000); });
  EXPECT_EQ(textOf(path), appended + linesOf(6000, 6000));
  append(6001, 6001);
  EXPECT_EQ(textOf(path), linesOf(1003, 5000) + linesOf(6000, 6001));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("shadow.jsonl"));
}

TEST_F(ShadowLogStop, InATrimBringsNothingBackThatIsRemoved) {
  whileStoppedInTrim([this] { std::filesystem::remove(path); });
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
}

TEST_F(ShadowLogStop, JustAfterATrimCountsWhatOthersAppend) {
  writeText(path, before);
  TracedProcess process([this] { append(5000, 6000); });
  ASSERT_TRUE(process.goOnTo(SYS_fsync)) << "of the draft";
  ASSERT_TRUE(process.goOnTo(SYS_fsync)) << "of the folder, the trimmed log being in place";
  append(9000, 9000);
  while (process.goOn()) continue;
  EXPECT_EQ(textOf(path), linesOf(2002, 5000) + linesOf(9000, 9000) + linesOf(5001, 6000));
}

}  // namespace
}  // namespace tilwin
