#include <gmock/gmock.h>

#include "tests/core/drag/ShadowLogs.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

struct ShadowLogTrim : ShadowLogs {};

TEST_F(ShadowLogTrim, WaitsForTheFiveThousandAndFirstLine) {
  writeText(path, linesOf(0, 4989));
  append(4990, 4999);
  EXPECT_EQ(textOf(path), linesOf(0, 4999));
}

TEST_F(ShadowLogTrim, LeavesTheFourThousandNewest) {
  append(0, 5000);
  EXPECT_EQ(textOf(path), linesOf(1001, 5000));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("shadow.jsonl"));
}

TEST_F(ShadowLogTrim, ComesOnceInAThousandDrags) {
  writeText(path, linesOf(0, 4999));
  append(5000, 6000);
  EXPECT_EQ(textOf(path), linesOf(1001, 6000));
  append(6001, 6001);
  EXPECT_EQ(textOf(path), linesOf(2002, 6001));
}

TEST_F(ShadowLogTrim, LeavesTheLogToTheUserAloneWhoeverCouldReadIt) {
  writeText(path, linesOf(0, 4999));
  fs::permissions(path, fs::perms(0644));
  append(5000, 5000);
  EXPECT_EQ(textOf(path), linesOf(1001, 5000));
  EXPECT_EQ(permissionsOf(path), fs::perms(0600));
}

TEST_F(ShadowLogTrim, CountsTheLinesAnEarlierRunLeft) {
  for (const int before : {4999, 5000, 5001}) {
    writeText(path, linesOf(0, before - 1));
    append(before, before);
    EXPECT_EQ(textOf(path), linesOf(before < 5000 ? 0 : before - 3999, before)) << before << " lines";
  }
}

TEST_F(ShadowLogTrim, CountsALastLineThatWasCutShort) {
  writeText(path, linesOf(0, 4998) + lineOf(4999).substr(0, 50));
  append(5000, 5000);
  EXPECT_EQ(textOf(path), linesOf(1001, 4998) + lineOf(4999).substr(0, 50) + "\n" + linesOf(5000, 5000));
}

TEST_F(ShadowLogTrim, LeavesEmptyLinesOut) {
  writeText(path, linesOf(0, 2999) + std::string(2000, '\n'));
  append(3000, 3000);
  EXPECT_EQ(textOf(path), linesOf(0, 3000));
}

TEST_F(ShadowLogTrim, ShortensALogThatGrewFarBeyondIt) {
  writeText(path, linesOf(0, 119'999));
  ASSERT_GT(fs::file_size(path), LineFile::mostRead);
  append(120'000, 120'000);
  EXPECT_EQ(textOf(path), linesOf(116'001, 120'000));
}

TEST_F(ShadowLogTrim, RemovesWhatATrimThatWasCutShortLeft) {
  writeText(path, linesOf(0, 4999));
  writeText(path.string() + ".draft-12-0", linesOf(0, 3));
  append(5000, 5000);
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("shadow.jsonl"));
}

/// A log that another program changes between two records.
struct ShadowLogChange : ShadowLogs {
  ShadowLogFile log{path};

  void appendHere(int first, int last) {
    for (int number = first; number <= last; ++number) log.append(recordOf(number));
    log.drain();
  }
};

TEST_F(ShadowLogChange, ThatMakesItLongerIsCounted) {
  appendHere(0, 9);
  writeText(path, linesOf(0, 4999));
  appendHere(5000, 5000);
  EXPECT_EQ(textOf(path), linesOf(1001, 5000));
}

TEST_F(ShadowLogChange, ThatMakesItShorterIsCounted) {
  writeText(path, linesOf(0, 4998));
  appendHere(4999, 4999);
  writeText(path, linesOf(0, 9));
  appendHere(10, 19);
  EXPECT_EQ(textOf(path), linesOf(0, 19));
}

TEST_F(ShadowLogChange, ThatPutsAnotherInItsPlaceIsCounted) {
  appendHere(0, 0);
  const std::string other = linesOf(0, 4999);
  writeText(folder.path() / "other", other);
  fs::rename(folder.path() / "other", path);
  appendHere(5000, 5000);
  EXPECT_EQ(textOf(path), linesOf(1001, 5000));
}

TEST_F(ShadowLogChange, OfTheLinesAloneIsCounted) {
  writeText(path, linesOf(0, 2999));
  appendHere(3000, 3000);
  // As long as before, in the same file, and more lines. A file system's clock may tick no more than 100
  // times a second.
  std::string text = textOf(path);
  text.replace(0, text.find('\n', 3000), text.find('\n', 3000), '\n');
  for (const auto before = fs::last_write_time(path); fs::last_write_time(path) == before;)
    writeText(path, text);
  appendHere(3001, 3001);
  EXPECT_LE(LineFile::split(textOf(path)).size(), 4000U);
  EXPECT_EQ(numbersIn(path).back(), 3001);
  EXPECT_EQ(textOf(path).front(), '{') << "trimmed";
}

TEST_F(ShadowLogChange, ByTurnsOfTwoRunsNeverLetsItGrowBeyondTheLimit) {
  writeText(path, linesOf(0, 4899));
  ShadowLogFile other(path);
  for (int number = 4900; number < 6200; ++number) {
    (number % 3 == 0 ? other : log).append(recordOf(number));
    (number % 3 == 0 ? other : log).drain();
    if (number % 100 == 0) {
      EXPECT_LE(LineFile::split(textOf(path)).size(), 5000U);
    }
  }
  EXPECT_EQ(textOf(path), linesOf(2002, 6199));
}

}  // namespace
}  // namespace tilwin
