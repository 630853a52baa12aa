// Somebody else has put something where the log lies.

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/core/drag/ShadowLogs.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

struct ShadowLogStrangers : ShadowLogs {
  fs::path file = folder.path() / "letters" / "old.txt";  ///< of the user, and nothing to do with the log
  const std::string content = linesOf(0, 6000);

  ShadowLogStrangers() {
    fs::create_directory(file.parent_path());
    writeText(file, content);
    fs::permissions(file, fs::perms(0644));
  }

  [[nodiscard]] testing::AssertionResult fileIsUntouched() const {
    if (textOf(file) == content && permissionsOf(file) == fs::perms(0644)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << LineFile::split(textOf(file)).size() << " lines, permissions "
                                       << std::oct << static_cast<int>(permissionsOf(file));
  }
};

/// Makes the file or link another user's; false where only root can do that.
bool giveAway(const fs::path& path) { return ::lchown(path.c_str(), 65534, 65534) == 0; }

TEST_F(ShadowLogStrangers, ALinkInItsPlaceIsNotFollowed) {
  fs::create_symlink(file, path);
  append(0, 9);
  EXPECT_TRUE(fileIsUntouched());
  EXPECT_THAT(ShadowLogFile::read(path), IsEmpty());
  EXPECT_TRUE(fs::is_symlink(path));
}

TEST_F(ShadowLogStrangers, ALinkToNothingMakesNothing) {
  fs::create_symlink(folder.path() / "letters" / "new.txt", path);
  append(0, 9);
  EXPECT_THAT(namesIn(file.parent_path()), ElementsAre("old.txt"));
}

TEST_F(ShadowLogStrangers, ASecondNameOfAnotherFileIsNotTheLog) {
  fs::create_hard_link(file, path);
  append(0, 9);
  EXPECT_TRUE(fileIsUntouched());
  EXPECT_THAT(ShadowLogFile::read(path), IsEmpty());
}

TEST_F(ShadowLogStrangers, AFileOfAnotherUserIsNeitherWrittenNorRead) {
  writeText(path, linesOf(0, 9));
  fs::permissions(path, fs::perms(0666));
  if (!giveAway(path)) return;
  append(10, 19);
  EXPECT_EQ(textOf(path), linesOf(0, 9));
  EXPECT_EQ(permissionsOf(path), fs::perms(0666));
  EXPECT_THAT(ShadowLogFile::read(path), IsEmpty());
}

TEST_F(ShadowLogStrangers, AFolderOfAnotherUserHoldsNoLog) {
  path = folder.path() / "Tilwin" / "shadow.jsonl";
  fs::create_directory(path.parent_path());
  if (!giveAway(path.parent_path())) return;
  append(0, 9);
  EXPECT_THAT(namesIn(path.parent_path()), IsEmpty());
}

TEST_F(ShadowLogStrangers, ALinkOfAnotherUserInPlaceOfTheFolderIsNotFollowed) {
  path = folder.path() / "Tilwin" / "shadow.jsonl";
  fs::create_directory_symlink(file.parent_path(), path.parent_path());
  writeText(file.parent_path() / "shadow.jsonl", "a letter about it\n");
  if (!giveAway(path.parent_path())) return;
  append(0, 9);
  ShadowLogFile(path).erase();
  EXPECT_EQ(textOf(file.parent_path() / "shadow.jsonl"), "a letter about it\n");
}

TEST_F(ShadowLogStrangers, AFolderThatTheUserKeepsElsewhereHoldsTheLog) {
  path = folder.path() / "Tilwin" / "shadow.jsonl";
  fs::create_directory_symlink(file.parent_path(), path.parent_path());
  append(0, 9);
  EXPECT_EQ(numbersIn(file.parent_path() / "shadow.jsonl"), numbers(0, 9));
}

TEST_F(ShadowLogStrangers, ErasingRemovesALinkAndNotWhatItLeadsTo) {
  fs::create_symlink(file, path);
  ShadowLogFile log(path);
  log.erase();
  EXPECT_FALSE(fs::exists(fs::symlink_status(path)));
  EXPECT_TRUE(fileIsUntouched());
  log.append(recordOf(1));
  log.drain();
  EXPECT_THAT(numbersIn(path), ElementsAre(1));
}

TEST_F(ShadowLogStrangers, ErasingRemovesAFileThatAnotherUserLeftThere) {
  writeText(path, linesOf(0, 9));
  static_cast<void>(giveAway(path));
  ShadowLogFile(path).erase();
  EXPECT_FALSE(fs::exists(path));
}

TEST_F(ShadowLogStrangers, AFolderIsMadeForTheUserAloneWhateverTheUmask) {
  const mode_t usual = ::umask(0);
  const auto url = ShadowLogFile::defaultURL(folder.path() / "share" / "support");
  ::umask(usual);
  for (const fs::path& made : {url->parent_path(), url->parent_path().parent_path(), folder.path() / "share"})
    EXPECT_EQ(permissionsOf(made), fs::perms(0700)) << made;
}

TEST_F(ShadowLogStrangers, AFolderThatWasOpenToOthersIsClosed) {
  const fs::path made = folder.path() / "Tilwin";
  fs::create_directory(made);
  fs::permissions(made, fs::perms(0777));
  EXPECT_EQ(ShadowLogFile::defaultURL(folder.path()), made / "shadow.jsonl");
  EXPECT_EQ(permissionsOf(made), fs::perms(0700));
}

TEST_F(ShadowLogStrangers, ALogThatOthersCouldReadIsTheUsersAloneAfterTheNextLine) {
  writeText(path, linesOf(0, 2));
  fs::permissions(path, fs::perms(0644));
  append(3, 3);
  EXPECT_EQ(numbersIn(path), numbers(0, 3));
  EXPECT_EQ(permissionsOf(path), fs::perms(0600));
}

}  // namespace
}  // namespace tilwin
