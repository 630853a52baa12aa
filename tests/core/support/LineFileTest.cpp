#include "core/support/LineFile.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "tests/TemporaryFolder.h"
#include "tests/core/support/ChildProcess.h"
#include "tests/core/support/FileText.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

struct LineFileTest : testing::Test {
  TemporaryFolder folder;
  fs::path path = folder.path() / "log.jsonl";

  void add(std::string_view line) const {
    auto file = LineFile::take(path);
    ASSERT_TRUE(file && file->isHeldAlone());
    EXPECT_TRUE(file->append(line));
  }

  [[nodiscard]] std::size_t count() const { return LineFile::take(path).value().count(); }
};

fs::perms permissionsOf(const fs::path& path) { return fs::status(path).permissions(); }

TEST_F(LineFileTest, SplitsAtLineFeedsAndLeavesEmptyLinesOut) {
  EXPECT_THAT(LineFile::split(""), IsEmpty());
  EXPECT_THAT(LineFile::split("\n\n"), IsEmpty());
  EXPECT_THAT(LineFile::split("one"), ElementsAre("one"));
  EXPECT_THAT(LineFile::split("one\ntwo\n"), ElementsAre("one", "two"));
  EXPECT_THAT(LineFile::split("\none\n\n\ntwo"), ElementsAre("one", "two"));
  EXPECT_THAT(LineFile::split(" \none\r\n"), ElementsAre(" ", "one\r"));
  EXPECT_THAT(LineFile::split(std::string_view("a\0b\nc", 5)), ElementsAre(std::string_view("a\0b", 3), "c"));
}

TEST_F(LineFileTest, ReadsTheWholeContent) {
  const std::string content("one\n\0two\n\nthree", 15);
  writeText(path, content);
  EXPECT_EQ(LineFile::read(path), content);
  writeText(path, "");
  EXPECT_EQ(LineFile::read(path), "");
}

TEST_F(LineFileTest, CountsLinesTheLastOfThemEvenWhenItIsCutShort) {
  const std::map<std::string, std::size_t> counts{{"", 0},      {"\n", 1},      {"one", 1},
                                                  {"one\n", 1}, {"one\ntw", 2}, {"one\ntwo\n\n", 3}};
  for (const auto& [content, expected] : counts) {
    writeText(path, content);
    EXPECT_EQ(count(), expected) << content;
  }
}

TEST_F(LineFileTest, CountsAcrossTheBlocksItReads) {
  std::string content;
  for (int line = 0; line < 30'000; ++line) content += "12345678\n";
  writeText(path, content);
  EXPECT_EQ(count(), 30'000U);
}

TEST_F(LineFileTest, AddsEachLineWithItsEnd) {
  add("one");
  add("two");
  EXPECT_EQ(textOf(path), "one\ntwo\n");
}

TEST_F(LineFileTest, BeginsANewLineAfterOneThatWasCutShort) {
  writeText(path, "one\ntw");
  add("three");
  EXPECT_EQ(textOf(path), "one\ntw\nthree\n");
}

TEST_F(LineFileTest, MakesANewFileTheUsersAloneWhateverTheUmask) {
  for (const mode_t mask : {0U, 022U, 077U, 0777U}) {
    fs::remove(path);
    const mode_t usual = ::umask(mask);
    add("one");
    ::umask(usual);
    EXPECT_EQ(permissionsOf(path), fs::perms(0600)) << "umask " << mask;
    EXPECT_EQ(textOf(path), "one\n");
  }
}

TEST_F(LineFileTest, MakesAFileTheUsersAloneBeforeAnythingMoreIsInIt) {
  for (const char* before : {"", "one\n"}) {
    writeText(path, before);
    fs::permissions(path, fs::perms(0644));
    const auto file = LineFile::take(path);
    EXPECT_EQ(permissionsOf(path), fs::perms(0600));
  }
}

TEST_F(LineFileTest, MakesTheFolderAndItsParents) {
  path = folder.path() / "a" / "b" / "log.jsonl";
  add("one");
  EXPECT_EQ(textOf(path), "one\n");
}

TEST_F(LineFileTest, TakesAndReadsNothingElseThanAFileAndWaitsForNobody) {
  EXPECT_EQ(LineFile::read(path), std::nullopt);
  fs::create_directory(path);
  EXPECT_EQ(LineFile::read(path), std::nullopt);
  EXPECT_FALSE(LineFile::take(path));
  fs::remove(path);
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(LineFile::read(path), std::nullopt);
  EXPECT_FALSE(LineFile::take(path));
  fs::remove(path);
  fs::create_symlink("log.jsonl", path);
  EXPECT_EQ(LineFile::read(path), std::nullopt);
  EXPECT_FALSE(LineFile::take(path));
}

TEST_F(LineFileTest, TakesNothingWhereAFileStandsInPlaceOfTheFolder) {
  writeText(folder.path() / "file", "");
  EXPECT_FALSE(LineFile::take(folder.path() / "file" / "log.jsonl"));
}

TEST_F(LineFileTest, TakesAndReadsNoFileThatHasASecondName) {
  const fs::path real = folder.path() / "mine.jsonl";
  writeText(real, "one\n");
  for (const bool isSymbolic : {true, false}) {
    fs::remove(path);
    isSymbolic ? fs::create_symlink(real, path) : fs::create_hard_link(real, path);
    EXPECT_EQ(LineFile::read(path), std::nullopt);
    EXPECT_FALSE(LineFile::take(path));
  }
  EXPECT_EQ(textOf(real), "one\n");
}

/// A text of that many bytes: lines of 60, of which only the first may be shorter.
std::string longText(std::size_t size) {
  std::string text(size % 60, '.');
  if (!text.empty()) text.back() = '\n';
  for (std::size_t line = 0; text.size() < size; ++line) {
    const std::string number = std::to_string(line);
    text.append(59 - number.size(), '.').append(number).append("\n");
  }
  return text;
}

TEST_F(LineFileTest, ReadsAFileUpToTheLimitWhole) {
  for (const std::size_t size : {LineFile::mostRead - 1, LineFile::mostRead, LineFile::mostRead + 1}) {
    const std::string text = longText(size);
    writeText(path, text);
    EXPECT_TRUE(LineFile::read(path) == text) << size << " bytes";
  }
}

TEST_F(LineFileTest, ReadsTheEndOfALongerFileFromTheBeginOfALine) {
  for (const std::size_t more : {2U, 60U, 61U}) {
    const std::string text = longText(LineFile::mostRead + more);
    writeText(path, text);
    const std::string read = LineFile::read(path).value_or("");
    EXPECT_TRUE(text.ends_with(read));
    EXPECT_EQ(read.size(), LineFile::mostRead - LineFile::mostRead % 60) << more << " more";
  }
}

TEST_F(LineFileTest, ReadsNothingOfALongerFileThatIsOneLine) {
  writeText(path, std::string(LineFile::mostRead + 100, 'x'));
  EXPECT_EQ(LineFile::read(path), "");
}

TEST_F(LineFileTest, LeavesTheFileAsItWasWhenTheDiskTakesNoMore) {
  for (const char* before : {"one\n", "one\ntw"}) {
    writeText(path, before);
    const auto outcome = inChild([&] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{10, 10};
      ::setrlimit(RLIMIT_FSIZE, &limit);
      auto file = LineFile::take(path);
      if (!file || file->append("a line that does not fit")) ::_exit(2);
    });
    EXPECT_EQ(outcome, ChildOutcome::done);
    EXPECT_EQ(textOf(path), before);
  }
}

TEST_F(LineFileTest, EndsTheTurnOfWhoeverIsMovedOrReplaced) {
  auto first = LineFile::take(path);
  auto second = std::move(first);
  second = LineFile::take(folder.path() / "other.jsonl");
  EXPECT_TRUE(LineFile::take(path).value().isHeldAlone());
}

}  // namespace
}  // namespace tilwin
