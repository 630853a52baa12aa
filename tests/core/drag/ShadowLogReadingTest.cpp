#include <gmock/gmock.h>

#include "tests/core/drag/ShadowLogs.h"

namespace tilwin {
namespace {

using testing::ElementsAre;

std::string replaced(std::string text, std::string_view what, std::string_view with) {
  return text.replace(text.find(what), what.size(), with);
}

/// Texts that are no JSON object with the keys of a record.
std::vector<std::string> strangeLines() {
  const std::string whole = lineOf(7);
  std::string withNul = whole;
  withNul[20] = '\0';
  return {
      "not JSON at all",
      " ",
      "\r",
      "{}",
      "[]",
      "null",
      "7",
      "\xEF\xBB\xBF",
      std::string(1, '\0'),
      std::string(1 << 20, 'x'),
      std::string(100'000, '['),
      whole.substr(0, whole.size() - 1),
      whole.substr(1),
      whole + whole,
      withNul,
  };
}

/// Records of which one value is wrong.
std::vector<std::string> wrongLines() {
  const std::string whole = lineOf(7);
  return {
      replaced(whole, "keptSnap", "ketpSnap"),
      replaced(whole, R"("keptSnap")", "1"),
      replaced(whole, "1440x900", "14\xC3\x28x900"),
      replaced(whole, "2024-03-05T14:07:00Z", "2024-03-05"),
      replaced(whole, "2024-03-05T14:07:00Z", "2024-13-05T14:07:00Z"),
      replaced(whole, R"("distance":7)", R"("distance":"7")"),
      replaced(whole, R"("distance":7)", R"("distance":null)"),
      replaced(whole, R"("distance":7)", R"("distance":1e999)"),
      replaced(whole, R"("distance":7)", R"("distance":NaN)"),
      replaced(whole, R"("distance":7)", R"("Distance":7)"),
      replaced(whole, R"("neighbour":true)", R"("neighbour":1)"),
      replaced(whole, R"("v":1)", R"("v":1.5)"),
      replaced(whole, R"("v":1)", R"("v":99999999999999999999)"),
      replaced(whole, R"("leftHalf")", "5"),
  };
}

/// Lines that are no record, each of another kind.
std::vector<std::string> brokenLines() {
  std::vector<std::string> lines = strangeLines();
  const auto wrong = wrongLines();
  lines.insert(lines.end(), wrong.begin(), wrong.end());
  return lines;
}

struct ShadowLogReading : ShadowLogs {
  void expectNumbers(const std::string& content, const std::vector<int>& expected) const {
    writeText(path, content);
    EXPECT_EQ(numbersIn(path), expected) << content.substr(0, 300);
  }
};

TEST_F(ShadowLogReading, PassesOverWhatIsNoRecord) {
  for (const std::string& line : brokenLines())
    expectNumbers(lineOf(1) + "\n" + line + "\n" + lineOf(2) + "\n", {1, 2});
}

TEST_F(ShadowLogReading, PassesOverMuchThatIsNoRecordAndKeepsTheOrder) {
  std::string content;
  std::vector<int> expected;
  for (const std::string& line : brokenLines()) {
    if (line.size() > 1000) continue;
    expected.push_back(100 - static_cast<int>(expected.size()));
    content += line + "\n\n" + lineOf(expected.back()) + "\n";
  }
  expectNumbers(content, expected);
}

TEST_F(ShadowLogReading, ReadsALastLineWithoutItsEnd) {
  expectNumbers(lineOf(1) + "\n" + lineOf(2), {1, 2});
  expectNumbers(lineOf(1) + "\n" + lineOf(2).substr(0, 60), {1});
  expectNumbers("", {});
  expectNumbers("\n\n\n", {});
}

TEST_F(ShadowLogReading, ReadsLineEndsOfOtherSystems) {
  expectNumbers(lineOf(1) + "\r\n" + lineOf(2) + "\r\n\r\n", {1, 2});
}

TEST_F(ShadowLogReading, ReadsRecordsWrittenByOtherHands) {
  const std::string line = R"(  {"v": 2, "zone": null, "more": [1], "follow": "leftAlone", "rule": false, )"
                           R"("neighbour": false, "settled": 0, "dwell": 0.0, "speed": 1e2, "distance": 5, )"
                           R"("screen": "", "at": "2024-03-05T16:07:30.5+02:00"} )";
  writeText(path, line);
  const auto records = ShadowLogFile::read(path);
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records.front(), (ShadowRecord{.v = 2,
                                           .at = recordOf(0).at + std::chrono::milliseconds(30'500),
                                           .screen = "",
                                           .distance = 5,
                                           .speed = 100,
                                           .zone = std::nullopt}));
}

TEST_F(ShadowLogReading, FindsExactlyTheRecordsAmongFiveThousandLines) {
  const auto broken = brokenLines();
  std::string content;
  std::vector<int> expected;
  for (int line = 0; line < 5000; ++line) {
    const std::string& other = broken[static_cast<std::size_t>(line) % broken.size()];
    const bool isWhole = line % 3 != 0 || other.size() > 1000;
    if (isWhole) expected.push_back(line);
    content += (isWhole ? lineOf(line) : other) + "\n";
  }
  expectNumbers(content, expected);

  append(5000, 5000);
  std::erase_if(expected, [](int number) { return number < 1001; });
  expected.push_back(5000);
  EXPECT_EQ(numbersIn(path), expected) << "a trim counts every line, whole or not";
  append(5001, 5001);
  expected.push_back(5001);
  EXPECT_EQ(numbersIn(path), expected);
}

TEST_F(ShadowLogReading, LosesNothingBehindALineThatWasCutShort) {
  writeText(path, lineOf(1) + "\n" + lineOf(2).substr(0, 60));
  append(3, 4);
  EXPECT_THAT(numbersIn(path), ElementsAre(1, 3, 4));
  EXPECT_EQ(brokenLinesIn(path), 1U);
}

}  // namespace
}  // namespace tilwin
