#include <gmock/gmock.h>

#include "tests/core/drag/ShadowLogs.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

struct ShadowLogErase : ShadowLogs {};

TEST_F(ShadowLogErase, RemovesTheFileWithAllThatWasAppendedBefore) {
  ShadowLogFile log(path);
  for (int number = 0; number < 1000; ++number) log.append(recordOf(number));
  log.erase();
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
  log.drain();
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
}

TEST_F(ShadowLogErase, OfAMissingFileIsNoError) {
  ShadowLogFile log(path);
  log.erase();
  log.erase();
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
  ShadowLogFile nowhere(folder.path() / "none" / "shadow.jsonl");
  nowhere.erase();
  EXPECT_THAT(namesIn(folder.path()), IsEmpty()) << "erasing makes no folder";
}

TEST_F(ShadowLogErase, IsFollowedByANewLog) {
  ShadowLogFile log(path);
  log.append(recordOf(1));
  log.erase();
  log.append(recordOf(2));
  log.drain();
  EXPECT_THAT(numbersIn(path), ElementsAre(2));
  EXPECT_EQ(permissionsOf(path), fs::perms(0600));
}

TEST_F(ShadowLogErase, ForgetsHowManyLinesThereWere) {
  writeText(path, linesOf(0, 4999));
  ShadowLogFile log(path);
  log.erase();
  for (int number = 0; number < 5000; ++number) log.append(recordOf(number));
  log.drain();
  EXPECT_EQ(numbersIn(path), numbers(0, 4999));
}

TEST_F(ShadowLogErase, RemovesWhatATrimThatWasCutShortLeft) {
  writeText(path, linesOf(0, 9));
  writeText(path.string() + ".draft-12-0", linesOf(0, 3));
  writeText(path.string() + ".unrelated", "");
  ShadowLogFile(path).erase();
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("shadow.jsonl.unrelated"));
}

TEST_F(ShadowLogErase, RemovesThatEvenWhereTheLogItselfIsGone) {
  writeText(path.string() + ".draft-12-0", linesOf(0, 3));
  ShadowLogFile(path).erase();
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
}

TEST_F(ShadowLogErase, ByOneRunIsNoticedByAnother) {
  writeText(path, linesOf(0, 4998));
  ShadowLogFile log(path);
  log.append(recordOf(4999));
  log.drain();
  ShadowLogFile(path).erase();
  for (int number = 0; number < 10; ++number) log.append(recordOf(number));
  log.drain();
  EXPECT_EQ(numbersIn(path), numbers(0, 9));
}

}  // namespace
}  // namespace tilwin
