#include "core/support/AtomicFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <ctime>
#include <string>
#include <vector>

#include "tests/TemporaryFolder.h"
#include "tests/core/support/ChildProcess.h"
#include "tests/core/support/FileText.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr std::size_t plenty = 1000;

struct AtomicFileTest : testing::Test {
  TemporaryFolder folder;
  fs::path path = folder.path() / "layouts.json";

  [[nodiscard]] std::vector<std::string> names() const { return namesIn(folder.path()); }
};

fs::perms permissionsOf(const fs::path& path) { return fs::status(path).permissions(); }

TEST_F(AtomicFileTest, ReadsTheWholeFile) {
  writeText(path, std::string("a\0b\n", 4));
  EXPECT_EQ(AtomicFile::read(path, plenty), std::string("a\0b\n", 4));
}

TEST_F(AtomicFileTest, ReadsNoMoreThanTheLimit) {
  writeText(path, "12345");
  EXPECT_EQ(AtomicFile::read(path, 5), "12345");
  EXPECT_EQ(AtomicFile::read(path, 4), std::nullopt);
}

TEST_F(AtomicFileTest, ReadsNothingWhereThereIsNoFileToRead) {
  EXPECT_EQ(AtomicFile::read(path, plenty), std::nullopt);
  EXPECT_EQ(AtomicFile::read(folder.path(), plenty), std::nullopt);
  EXPECT_EQ(AtomicFile::read("", plenty), std::nullopt);
}

TEST_F(AtomicFileTest, DoesNotWaitForWhoeverMayWriteToAPipe) {
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(AtomicFile::read(path, plenty), std::nullopt);
}

TEST_F(AtomicFileTest, ReplacesTheContentAndLeavesNothingElseBehind) {
  AtomicFile::replace(path, "old and long");
  AtomicFile::replace(path, "new");
  EXPECT_EQ(textOf(path), "new");
  EXPECT_THAT(names(), ElementsAre("layouts.json"));
}

TEST_F(AtomicFileTest, MakesTheFolderAndItsParentsFirst) {
  const fs::path deep = folder.path() / "a" / "b" / "layouts.json";
  AtomicFile::replace(deep, "new");
  EXPECT_EQ(textOf(deep), "new");
}

TEST_F(AtomicFileTest, GivesANewFileTheUsersUsualPermissions) {
  const mode_t usual = ::umask(027);
  AtomicFile::replace(path, "new");
  ::umask(usual);
  EXPECT_EQ(permissionsOf(path), fs::perms(0640));
}

TEST_F(AtomicFileTest, KeepsThePermissionsOfTheFileItReplaces) {
  writeText(path, "old");
  for (const auto permissions : {fs::perms(0600), fs::perms(0664)}) {
    fs::permissions(path, permissions);
    AtomicFile::replace(path, "new");
    EXPECT_EQ(permissionsOf(path), permissions);
  }
}

TEST_F(AtomicFileTest, ReplacesWhatASymbolicLinkPointsAtAndKeepsTheLink) {
  const fs::path real = folder.path() / "elsewhere" / "mine.json";
  AtomicFile::replace(real, "old");
  fs::create_symlink(real, path);
  AtomicFile::replace(path, "new");
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(textOf(real), "new");
}

TEST_F(AtomicFileTest, MakesAFilePrivateAsItReplacesItWhateverTheUmaskAndTheOldFile) {
  for (const mode_t mask : {0U, 022U, 077U}) {
    const mode_t usual = ::umask(mask);
    writeText(path, "old");
    fs::permissions(path, fs::perms(0644));
    EXPECT_TRUE(AtomicFile::replacePrivately(path, "new", AtomicFile::stamp(path).value()));
    EXPECT_EQ(textOf(path), "new");
    EXPECT_EQ(permissionsOf(path), fs::perms(0600));
    ::umask(usual);
  }
}

TEST_F(AtomicFileTest, ReplacesNoFileThatIsNoLongerAsItWas) {
  writeText(path, "old");
  const auto old = AtomicFile::stamp(path);
  ASSERT_TRUE(old);
  EXPECT_TRUE(AtomicFile::replacePrivately(path, "new", *old));
  EXPECT_EQ(textOf(path), "new");
  EXPECT_FALSE(AtomicFile::replacePrivately(path, "newer", *old));
  EXPECT_FALSE(AtomicFile::replaceUnchanged(path, "newer", *old));
  EXPECT_FALSE(AtomicFile::replaceUnchanged(path, "newer", std::nullopt)) << "of no file";
  EXPECT_EQ(textOf(path), "new");
  EXPECT_THAT(names(), ElementsAre("layouts.json"));
  fs::remove(path);
  EXPECT_FALSE(AtomicFile::replacePrivately(path, "newer", *old));
  EXPECT_FALSE(AtomicFile::replaceUnchanged(path, "newer", *old));
  EXPECT_THAT(names(), testing::IsEmpty());
}

TEST_F(AtomicFileTest, TellsTheStampOfWhatItWrote) {
  std::optional<AtomicFile::Stamp> known;
  for (const char* content : {"one", "another"}) {
    known = AtomicFile::replaceUnchanged(path, content, known);
    EXPECT_EQ(textOf(path), content);
    EXPECT_EQ(known, AtomicFile::stamp(path));
  }
}

TEST_F(AtomicFileTest, KnowsAFileOfAnyAge) {
  writeText(path, "old");
  for (const std::int64_t seconds : {-4'000'000'000LL, 0LL, 10'000'000'000LL}) {
    const std::array times{timespec{seconds, 0}, timespec{seconds, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times.data(), 0), 0);
    EXPECT_TRUE(AtomicFile::stamp(path)) << seconds;
  }
}

TEST_F(AtomicFileTest, ReplacesALinkAndNotWhatItLeadsToByPrivateData) {
  const fs::path real = folder.path() / "mine.json";
  writeText(real, "old");
  fs::create_symlink(real, path);
  EXPECT_TRUE(AtomicFile::replacePrivately(path, "new", AtomicFile::stamp(path).value()));
  EXPECT_FALSE(fs::is_symlink(path));
  EXPECT_EQ(textOf(real), "old");
}

TEST_F(AtomicFileTest, RemovesAFileOrALinkAloneAndItsDrafts) {
  const fs::path real = folder.path() / "mine.json";
  writeText(real, "old");
  for (const bool isLink : {true, false}) {
    isLink ? fs::create_symlink(real, path) : writeText(path, "");
    writeText(path.string() + ".draft-12-0", "");
    AtomicFile::removePrivately(path);
    EXPECT_THAT(names(), ElementsAre("mine.json"));
  }
}

TEST_F(AtomicFileTest, GivesTheOldFilesPermissionsWhateverTheUmask) {
  writeText(path, "old");
  fs::permissions(path, fs::perms(0666));
  const mode_t usual = ::umask(077);
  AtomicFile::replace(path, "new");
  ::umask(usual);
  EXPECT_EQ(permissionsOf(path), fs::perms(0666));
}

TEST_F(AtomicFileTest, RemovesTheDraftsOfThisFileAlone) {
  const std::vector<std::string> others{"layouts.json.2026-11",     "layouts.json.draft",
                                        "layouts.json.draft--1",    "layouts.json.draft-1-2-3",
                                        "layouts.json.draft-12",    "layouts.json.draft-12-",
                                        "layouts.json.unreadable",  "layouts.json.draft-12-0.old",
                                        "layouts.jsonx.draft-12-0", "other.json.draft-12-0"};
  for (const std::string& name : others) writeText(folder.path() / name, "");
  for (const char* name : {"layouts.json.draft-12-0", "layouts.json.draft-4194304-17"})
    writeText(folder.path() / name, "");
  AtomicFile::removeDrafts(path);
  EXPECT_THAT(names(), testing::UnorderedElementsAreArray(others));
}

TEST_F(AtomicFileTest, RemovesWhatAProcessLeftThatEndedBeforeItsDraftWasInPlace) {
  writeText(path, "old");
  const auto old = AtomicFile::stamp(path).value();
  // Ended by the limit on file sizes, in the middle of the draft.
  EXPECT_EQ(inChild([&] {
              const rlimit limit{1, 1};
              ::setrlimit(RLIMIT_FSIZE, &limit);
              std::signal(SIGXFSZ, SIG_DFL);
              static_cast<void>(AtomicFile::replacePrivately(path, "longer than that", old));
            }),
            ChildOutcome::died);
  ASSERT_EQ(names().size(), 2U);
  AtomicFile::removeDrafts(path);
  EXPECT_THAT(names(), ElementsAre("layouts.json"));
  EXPECT_EQ(textOf(path), "old");
}

TEST_F(AtomicFileTest, RemovesNoDraftsWhereThereIsNoFolder) {
  AtomicFile::removeDrafts(folder.path() / "none" / "layouts.json");
  EXPECT_THAT(names(), testing::IsEmpty());
}

TEST_F(AtomicFileTest, LeavesTheOldFileAloneWhenTheDiskTakesNoMore) {
  writeText(path, "old");
  const auto outcome = inChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100, 100};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    AtomicFile::replace(path, std::string(1000, 'n'));
  });
  EXPECT_EQ(outcome, ChildOutcome::threw);
  EXPECT_EQ(textOf(path), "old");
  EXPECT_THAT(names(), ElementsAre("layouts.json"));
}

TEST_F(AtomicFileTest, LeavesTheOldFileAloneInAFolderThatMayNotBeWritten) {
  writeText(path, "old");
  fs::permissions(folder.path(), fs::perms(0555));
  const auto outcome = inChild([&] {
    constexpr uid_t nobody = 65534;
    // What is read-only to others never is to root.
    if (::geteuid() == 0 && ::setuid(nobody) != 0) return;
    AtomicFile::replace(path, "new");
  });
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(outcome, ChildOutcome::threw);
  EXPECT_EQ(textOf(path), "old");
  EXPECT_THAT(names(), ElementsAre("layouts.json"));
}

TEST_F(AtomicFileTest, SaysWhyItCouldNotReplace) {
  fs::create_directory(path);
  try {
    AtomicFile::replace(path, "new");
    FAIL() << "a folder was replaced";
  } catch (const fs::filesystem_error& error) {
    EXPECT_EQ(error.path1(), path);
    EXPECT_EQ(error.code(), std::errc::is_a_directory);
  }
  EXPECT_THAT(names(), ElementsAre("layouts.json"));
}

}  // namespace
}  // namespace tilwin
