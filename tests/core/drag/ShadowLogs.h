#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "core/drag/ShadowLogFile.h"
#include "core/support/LineFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/support/FileText.h"

namespace tilwin {

/// A record that can be identified by its number.
inline ShadowRecord recordOf(int number) {
  using namespace std::chrono;
  return {.at = sys_days(2024y / 3 / 5) + 14h + 7min,
          .screen = "1440x900",
          .distance = static_cast<double>(number),
          .speed = 812.07,
          .dwell = 0.1,
          .settled = 0.5,
          .neighbour = true,
          .rule = true,
          .zone = "leftHalf",
          .follow = DragFollowUp::keptSnap};
}

/// The same record as a line of the log, without the line feed.
inline std::string lineOf(int number) {
  return R"({"at":"2024-03-05T14:07:00Z","distance":)" + std::to_string(number) +
         R"(,"dwell":0.1,"follow":"keptSnap","neighbour":true,"rule":true,"screen":"1440x900",)"
         R"("settled":0.5,"speed":812.07,"v":1,"zone":"leftHalf"})";
}

/// The records from the first number to the last, inclusive.
inline std::vector<int> numbers(int first, int last) {
  std::vector<int> result;
  for (int number = first; number <= last; ++number) result.push_back(number);
  return result;
}

inline std::string linesOf(int first, int last) {
  std::string text;
  for (int number = first; number <= last; ++number) text += lineOf(number) + "\n";
  return text;
}

/// The numbers of the records in a log, in order.
inline std::vector<int> numbersIn(const std::filesystem::path& path) {
  std::vector<int> result;
  for (const ShadowRecord& record : ShadowLogFile::read(path))
    result.push_back(static_cast<int>(record.distance));
  return result;
}

/// The number of lines in a log that are not records.
inline std::size_t brokenLinesIn(const std::filesystem::path& path) {
  const std::string content = textOf(path);
  return LineFile::split(content).size() - numbersIn(path).size();
}

inline std::filesystem::perms permissionsOf(const std::filesystem::path& path) {
  return std::filesystem::status(path).permissions();
}

struct ShadowLogs : testing::Test {
  TemporaryFolder folder;
  std::filesystem::path path = folder.path() / "shadow.jsonl";

  /// Appends as one run of the program does.
  void append(int first, int last) const {
    ShadowLogFile log(path);
    for (int number = first; number <= last; ++number) log.append(recordOf(number));
  }
};

}  // namespace tilwin
