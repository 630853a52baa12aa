// Any bytes as a drag log: what can be read can be written and read back, and reported on.

#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "core/drag/ShadowRecordCoding.h"
#include "core/drag/ShadowReport.h"
#include "core/support/LineFile.h"
#include "fuzz/Require.h"

namespace tilwin {
namespace {

/// The same record as a log keeps it: in whole seconds.
ShadowRecord inWholeSeconds(ShadowRecord record) {
  record.at = std::chrono::floor<std::chrono::seconds>(record.at);
  return record;
}

std::string written(const ShadowRecord& record) {
  auto line = encodeJson(record);
  require(std::holds_alternative<std::string>(line), "a record that was read cannot be written");
  return std::get<std::string>(std::move(line));
}

void checkReadsBack(const ShadowRecord& record) {
  const std::string line = written(record);
  require(line.find('\n') == std::string::npos, "a record is written in more than one line");
  const auto back = decodeJson<ShadowRecord>(line);
  require(std::holds_alternative<ShadowRecord>(back), "a written record cannot be read");
  require(std::get<ShadowRecord>(back) == inWholeSeconds(record),
          "a record changes by being written and read");
  require(written(std::get<ShadowRecord>(back)) == line, "the same record is written in two ways");
}

void checkLines(std::string_view content, const std::vector<std::string_view>& lines) {
  std::size_t bytes = 0;
  for (const std::string_view line : lines) {
    require(!line.empty() && line.find('\n') == std::string_view::npos, "a line is empty or more than one");
    bytes += line.size();
  }
  for (const char each : content) bytes += each == '\n' ? 1 : 0;
  require(bytes == content.size(), "a byte is in no line, or in two");
}

void checkReport(const std::vector<ShadowRecord>& records) {
  const ShadowSummary summary = ShadowReport::summarize(records);
  require(summary.candidates == static_cast<std::int64_t>(records.size()), "a drag is not counted");
  require(summary.candidates == summary.corrected + summary.keptSnaps + summary.redragged + summary.leftAlone,
          "a drag has no follow-up, or two");
  require(summary.modelRight + summary.ruleRight <= summary.modelDiffers, "more were right than differed");
  require(summary.ruleSnaps <= summary.candidates, "more snaps than drags");
  require(summary.firstDay && summary.firstDay <= summary.lastDay, "days out of order");
  require(std::isfinite(summary.evidence()), "evidence beyond all bounds");
  require(!ShadowReport::text(summary, Date{}).empty(), "nothing to report");
}

}  // namespace
}  // namespace tilwin

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string content(data, data + size);
  const auto lines = tilwin::LineFile::split(content);
  tilwin::checkLines(content, lines);
  std::vector<tilwin::ShadowRecord> records;
  for (const std::string_view line : lines) {
    const auto decoded = tilwin::decodeJson<tilwin::ShadowRecord>(line);
    const auto* record = std::get_if<tilwin::ShadowRecord>(&decoded);
    if (record == nullptr) continue;
    tilwin::checkReadsBack(*record);
    records.push_back(*record);
  }
  // Dates take most of the time, and the report on no drags is always the same.
  if (!records.empty()) tilwin::checkReport(records);
  return 0;
}
