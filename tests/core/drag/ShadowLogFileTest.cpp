#include "core/drag/ShadowLogFile.h"

#include <gmock/gmock.h>

#include <limits>

#include "tests/core/drag/ShadowLogs.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

struct ShadowLogFileTest : ShadowLogs {};

TEST_F(ShadowLogFileTest, WritesEachRecordAsOneLineOfSortedKeys) {
  ShadowLogFile log(path);
  ShadowRecord record = recordOf(3);
  record.distance = 3.25;
  log.append(record);
  record = {.at = record.at + 59s + 900ms,
            .screen = "1920x1080",
            .distance = 12,
            .dwell = -0.07,
            .settled = 1,
            .zone = std::nullopt};
  log.append(record);
  log.drain();
  EXPECT_EQ(
      textOf(path),
      R"({"at":"2024-03-05T14:07:00Z","distance":3.25,"dwell":0.1,"follow":"keptSnap","neighbour":true,)"
      R"("rule":true,"screen":"1440x900","settled":0.5,"speed":812.07,"v":1,"zone":"leftHalf"})"
      "\n"
      R"({"at":"2024-03-05T14:07:59Z","distance":12,"dwell":-0.07,"follow":"leftAlone","neighbour":false,)"
      R"("rule":false,"screen":"1920x1080","settled":1,"speed":0,"v":1})"
      "\n");
}

TEST_F(ShadowLogFileTest, ReadsBackWhatItWrote) {
  std::vector<ShadowRecord> records;
  for (const DragFollowUp followUp : DragFollowUps::all()) {
    records.push_back(recordOf(static_cast<int>(records.size())));
    records.back().follow = followUp;
    records.back().speed = 0.1 + static_cast<double>(records.size()) / 3;
    records.back().zone.reset();
  }
  records.front().zone = "a \"zone\"\nof\ttwo lines \u00e9\u20ac";
  ShadowLogFile log(path);
  for (const auto& record : records) log.append(record);
  log.drain();
  EXPECT_EQ(ShadowLogFile::read(path), records);
  EXPECT_EQ(brokenLinesIn(path), 0U);
}

TEST_F(ShadowLogFileTest, HasNoRecordsWhereThereIsNoFile) {
  EXPECT_THAT(ShadowLogFile::read(path), IsEmpty());
  EXPECT_THAT(ShadowLogFile::read(folder.path()), IsEmpty());
  EXPECT_THAT(ShadowLogFile::read(folder.path() / "none" / "shadow.jsonl"), IsEmpty());
}

TEST_F(ShadowLogFileTest, WritesNothingUntilThereIsARecord) {
  { ShadowLogFile log(path); }
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
}

TEST_F(ShadowLogFileTest, KeepsTheLogToTheUserAlone) {
  append(0, 0);
  EXPECT_EQ(permissionsOf(path), fs::perms(0600));
}

TEST_F(ShadowLogFileTest, WaitsForAllThatWasAppendedBefore) {
  ShadowLogFile log(path);
  for (int number = 0; number < 500; ++number) log.append(recordOf(number));
  log.drain();
  EXPECT_EQ(numbersIn(path), numbers(0, 499));
}

TEST_F(ShadowLogFileTest, WritesAllThatWasAppendedBeforeItIsGone) {
  append(0, 499);
  EXPECT_EQ(numbersIn(path), numbers(0, 499));
}

TEST_F(ShadowLogFileTest, GoesOnWhereTheLastRunEnded) {
  append(0, 9);
  append(10, 19);
  EXPECT_EQ(numbersIn(path), numbers(0, 19));
}

TEST_F(ShadowLogFileTest, DropsARecordThatCannotBeWrittenAndItAlone) {
  ShadowLogFile log(path);
  log.append(recordOf(1));
  ShadowRecord record = recordOf(2);
  record.speed = std::numeric_limits<double>::quiet_NaN();
  log.append(record);
  record.speed = std::numeric_limits<double>::infinity();
  log.append(record);
  record = recordOf(3);
  record.at = Date::max();
  log.append(record);
  log.append(recordOf(4));
  log.drain();
  EXPECT_THAT(numbersIn(path), ElementsAre(1, 4));
  EXPECT_EQ(brokenLinesIn(path), 0U);
}

TEST_F(ShadowLogFileTest, BeginsAnewWhenTheFileIsRemovedUnderIt) {
  ShadowLogFile log(path);
  log.append(recordOf(1));
  log.drain();
  fs::remove(path);
  log.append(recordOf(2));
  log.drain();
  EXPECT_THAT(numbersIn(path), ElementsAre(2));
  EXPECT_EQ(permissionsOf(path), fs::perms(0600));
}

TEST_F(ShadowLogFileTest, BeginsAnewWhenTheFolderIsRemovedUnderIt) {
  path = folder.path() / "Tilwin" / "shadow.jsonl";
  ShadowLogFile log(path);
  log.append(recordOf(1));
  log.drain();
  fs::remove_all(path.parent_path());
  log.append(recordOf(2));
  log.drain();
  EXPECT_THAT(numbersIn(path), ElementsAre(2));
}

TEST_F(ShadowLogFileTest, LosesRecordsSilentlyWhereItCannotWrite) {
  fs::create_directory(path);
  append(0, 9);
  ShadowLogFile log(path);
  log.erase();
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("shadow.jsonl"));
  EXPECT_TRUE(fs::is_directory(path));
}

TEST_F(ShadowLogFileTest, LivesInAFolderOfItsOwn) {
  const fs::path support = folder.path() / "share" / "support";
  EXPECT_EQ(ShadowLogFile::defaultURL(support), support / "Tilwin" / "shadow.jsonl");
  EXPECT_TRUE(fs::is_directory(support / "Tilwin"));
  EXPECT_EQ(ShadowLogFile::defaultURL(support), support / "Tilwin" / "shadow.jsonl");
}

TEST_F(ShadowLogFileTest, HasAPlaceEvenWhereItsFolderCannotBeMade) {
  writeText(folder.path() / "file", "");
  EXPECT_EQ(ShadowLogFile::defaultURL(folder.path() / "file"),
            folder.path() / "file" / "Tilwin" / "shadow.jsonl");
}

TEST_F(ShadowLogFileTest, HasNoPlaceWithoutAnApplicationSupportFolder) {
  EXPECT_EQ(ShadowLogFile::defaultURL(std::nullopt), std::nullopt);
}

}  // namespace
}  // namespace tilwin
