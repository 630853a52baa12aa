// Somebody else watches the log's folder all the time.

#include <dirent.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <atomic>

#include "tests/core/drag/ShadowLogs.h"
#include "tests/core/support/ChildProcess.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;

struct Seen {
  std::atomic<int> rounds = 0;
  std::atomic<int> files = 0;
  std::atomic<int> openToOthers = 0;  ///< files with a permission for anybody else
  std::atomic<int> opened = 0;        ///< files that somebody else could open
};

/// A process that is not the user's, where there is a way to be somebody else; with the user's own rights it
/// can but look at the permissions.
class Watcher {
public:
  explicit Watcher(const fs::path& folder) : process_([&] { watch(folder); }) {
    while (seen_->rounds == 0) continue;
  }
  [[nodiscard]] const Seen& seen() const { return *seen_; }
  void waitForAnotherRound() const {
    for (const int before = seen_->rounds; seen_->rounds < before + 2;) continue;
  }

private:
  [[noreturn]] void watch(const fs::path& folder) const {
    constexpr uid_t nobody = 65534;
    const bool isSomebodyElse = ::geteuid() == 0 && ::setuid(nobody) == 0;
    for (;; ++seen_->rounds) {
      DIR* const entries = ::opendir(folder.c_str());
      if (entries == nullptr) ::_exit(1);
      while (const dirent* entry = ::readdir(entries)) look(folder / entry->d_name, isSomebodyElse);
      ::closedir(entries);
    }
  }

  void look(const fs::path& path, bool isSomebodyElse) const {
    struct stat facts {};
    if (::stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return;
    ++seen_->files;
    if ((facts.st_mode & 077) != 0) ++seen_->openToOthers;
    const int descriptor = isSomebodyElse ? ::open(path.c_str(), O_RDONLY | O_CLOEXEC) : -1;
    if (descriptor < 0) return;
    ++seen_->opened;
    ::close(descriptor);
  }

  Shared<Seen> seen_;
  ChildProcess process_;
};

struct ShadowLogPrivacy : ShadowLogs {
  ShadowLogPrivacy() { fs::permissions(folder.path(), fs::perms(0755)); }
};

TEST_F(ShadowLogPrivacy, WouldBeSeenBroken) {
  const Watcher watcher(folder.path());
  EXPECT_EQ(watcher.seen().files, 0);
  writeText(path, "for all to see");
  fs::permissions(path, fs::perms(0644));
  watcher.waitForAnotherRound();
  EXPECT_GT(watcher.seen().files, 0);
  EXPECT_GT(watcher.seen().openToOthers, 0);
  if (::geteuid() == 0) {
    EXPECT_GT(watcher.seen().opened, 0);
  }
}

TEST_F(ShadowLogPrivacy, HoldsAtEveryMomentWhateverTheUmask) {
  const Watcher watcher(folder.path());
  const mode_t usual = ::umask(0);
  {
    ShadowLogFile log(path);
    for (int number = 1; number <= 10'000; ++number) {
      log.append(recordOf(number));
      if (number % 100 == 0 && number <= 2000) log.erase();
    }
  }
  ::umask(usual);
  EXPECT_EQ(textOf(path), linesOf(5004, 10'000)) << "trimmed several times";
  EXPECT_GT(watcher.seen().files, 1000);
  EXPECT_EQ(watcher.seen().openToOthers, 0);
  EXPECT_EQ(watcher.seen().opened, 0);
}

}  // namespace
}  // namespace tilwin
