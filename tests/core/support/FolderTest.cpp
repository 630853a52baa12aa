#include "core/support/Folder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cerrno>
#include <map>

#include "tests/TemporaryFolder.h"
#include "tests/core/support/FileText.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;

fs::perms permissionsOfFolder(const fs::path& path) { return fs::status(path).permissions(); }

struct FolderTest : testing::Test {
  TemporaryFolder folder;
  fs::path path = folder.path() / "one" / "two";
};

TEST_F(FolderTest, IsTheOneThatAFileLiesIn) {
  EXPECT_EQ(Folder::of("a/b/file"), "a/b");
  EXPECT_EQ(Folder::of("/file"), "/");
  EXPECT_EQ(Folder::of("file"), ".");
}

TEST_F(FolderTest, IsMadeWithItsParentsForTheUserAloneWhateverTheUmask) {
  for (const mode_t mask : {0U, 022U}) {
    fs::remove_all(folder.path() / "one");
    const mode_t usual = ::umask(mask);
    EXPECT_TRUE(Folder::make(path));
    ::umask(usual);
    EXPECT_EQ(permissionsOfFolder(path), fs::perms::owner_all);
    EXPECT_EQ(permissionsOfFolder(path.parent_path()), fs::perms::owner_all);
  }
}

TEST_F(FolderTest, ThatIsThereStaysAsItIs) {
  fs::create_directories(path);
  fs::permissions(path, fs::perms(0755));
  EXPECT_TRUE(Folder::make(path));
  EXPECT_TRUE(Folder::make(path / ""));
  EXPECT_TRUE(Folder::make("/"));
  EXPECT_EQ(permissionsOfFolder(path), fs::perms(0755));
}

TEST_F(FolderTest, IsNotMadeWhereAFileStands) {
  writeText(folder.path() / "one", "");
  EXPECT_FALSE(Folder::make(path));
  EXPECT_FALSE(Folder::make(folder.path() / "one"));
  EXPECT_EQ(errno, EEXIST);
  EXPECT_FALSE(Folder::make(""));
}

TEST_F(FolderTest, IsClosedToOthersAndKeepsWhatItsOwnerMayDo) {
  for (const auto& [before, after] : std::map<int, int>{{0777, 0700}, {0755, 0700}, {0575, 0500}}) {
    fs::create_directories(path);
    fs::permissions(path, fs::perms(before));
    Folder::makePrivate(path);
    EXPECT_EQ(permissionsOfFolder(path), fs::perms(after));
  }
}

TEST_F(FolderTest, BehindALinkIsNotClosed) {
  fs::create_directories(path);
  fs::permissions(path, fs::perms(0755));
  fs::create_directory_symlink(path, folder.path() / "link");
  Folder::makePrivate(folder.path() / "link");
  EXPECT_EQ(permissionsOfFolder(path), fs::perms(0755));
}

TEST_F(FolderTest, IsOpenedBehindALinkThatTheUserMade) {
  fs::create_directories(path);
  fs::create_directory_symlink(path, folder.path() / "link");
  EXPECT_TRUE(Folder::open(folder.path() / "link").isOpen());
  EXPECT_TRUE(Folder::openOwn(folder.path() / "link").isOpen());
  EXPECT_TRUE(Folder::openOwn("/").isOpen()) << "which is root's";
}

TEST_F(FolderTest, IsNotOpenedWhereThereIsNone) {
  EXPECT_FALSE(Folder::openOwn(path).isOpen());
  EXPECT_EQ(errno, ENOENT);
  writeText(folder.path() / "file", "");
  EXPECT_FALSE(Folder::openOwn(folder.path() / "file").isOpen());
}

/// What another user can have put there; only root can make files look as if.
TEST_F(FolderTest, OfAnotherUserIsNeitherOpenedNorClosed) {
  if (::geteuid() != 0) return;
  constexpr uid_t nobody = 65534;
  const fs::path theirs = folder.path() / "theirs";
  const fs::path link = folder.path() / "link";
  fs::create_directories(path);
  fs::create_directory(theirs);
  fs::create_directory_symlink(path, link);
  fs::permissions(theirs, fs::perms(0777));
  ASSERT_EQ(::chown(theirs.c_str(), nobody, nobody), 0);
  ASSERT_EQ(::lchown(link.c_str(), nobody, nobody), 0);
  Folder::makePrivate(theirs);
  EXPECT_EQ(permissionsOfFolder(theirs), fs::perms(0777));
  EXPECT_FALSE(Folder::openOwn(theirs).isOpen());
  EXPECT_FALSE(Folder::openOwn(link).isOpen()) << "a link of theirs leads where they want";
}

TEST_F(FolderTest, HeldOpenIsTheSameWhateverTakesItsPlace) {
  fs::create_directories(path);
  const Descriptor held = Folder::openOwn(path);
  fs::rename(path, folder.path() / "moved");
  fs::create_directories(path);
  const Descriptor file(::openat(held.number(), "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  EXPECT_TRUE(file.isOpen());
  EXPECT_THAT(namesIn(folder.path() / "moved"), testing::ElementsAre("file"));
  EXPECT_THAT(namesIn(path), testing::IsEmpty());
}

}  // namespace
}  // namespace tilwin
