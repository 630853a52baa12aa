// What the drag log costs: the features of one drag by the length of its path, and a full log from its lines
// to the report, in parts that add up. The log is a simulated user's.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "bench/drag/DragSimulation.h"
#include "core/drag/DragIntentModel.h"
#include "core/drag/ShadowLogFile.h"
#include "core/drag/ShadowRecordCoding.h"
#include "core/drag/ShadowReport.h"
#include "core/support/JsonReader.h"
#include "core/support/LineFile.h"
#include "tests/TemporaryFolder.h"

namespace tilwin {
namespace {

constexpr Rect display{0, 0, 1440, 900};
constexpr auto fullLog = static_cast<std::size_t>(ShadowLogFile::trimAbove);

const std::vector<ShadowRecord>& log() {
  static const auto records = DragSimulation::log(0, 1, fullLog, SnapsBy::release);
  return records;
}

std::vector<ShadowRecord> startOfLog(std::int64_t records) {
  return {log().begin(), log().begin() + records};
}

std::string lines(const std::vector<ShadowRecord>& records) {
  std::string text;
  for (const ShadowRecord& record : records) text += std::get<std::string>(encodeJson(record)) + "\n";
  return text;
}

/// Towards the left edge and to rest, so that all of it counts for speeds and the end for the dwell.
DragTrace traceOf(std::int64_t samples) {
  DragTrace trace;
  for (std::int64_t index = 0; index < samples; ++index) {
    const double left = static_cast<double>(samples - index) / static_cast<double>(samples);
    trace.samples.push_back({.t = 0.032 * static_cast<double>(index), .x = 700 * left * left, .y = 400});
  }
  return trace;
}

struct LogOnDisk {
  explicit LogOnDisk(std::int64_t records) { std::ofstream(path()) << lines(startOfLog(records)); }

  [[nodiscard]] std::filesystem::path path() const { return folder.path() / "shadow.jsonl"; }

  TemporaryFolder folder;
};

void dragFeatures(benchmark::State& state) {
  const DragTrace trace = traceOf(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(DragFeatures::make(trace, display, {}));
}

void lesson(benchmark::State& state) {
  DragIntentModel model;
  std::size_t next = 0;
  for (auto _ : state) {
    const ShadowRecord& record = log()[next];
    model.learn(record.features(), record.follow);
    benchmark::DoNotOptimize(model.averaged.data());
    next = next + 1 == log().size() ? 0 : next + 1;
  }
}

void summarizeLog(benchmark::State& state) {
  const auto records = startOfLog(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(ShadowReport::summarize(records));
}

void reportText(benchmark::State& state) {
  const auto summary = ShadowReport::summarize(log());
  for (auto _ : state) benchmark::DoNotOptimize(ShadowReport::text(summary, {}).data());
}

void readLog(benchmark::State& state) {
  const LogOnDisk file(state.range(0));
  for (auto _ : state) {
    if (ShadowLogFile::read(file.path()).size() != static_cast<std::size_t>(state.range(0)))
      state.SkipWithError("lines were lost");
  }
}

void reportOnLog(benchmark::State& state) {
  const LogOnDisk file(state.range(0));
  for (auto _ : state) {
    const auto summary = ShadowReport::summarize(ShadowLogFile::read(file.path()));
    benchmark::DoNotOptimize(ShadowReport::text(summary, {}).data());
  }
}

/// Bytes to lines, without any JSON.
void readLines(benchmark::State& state) {
  const LogOnDisk file(state.range(0));
  for (auto _ : state) {
    const std::string content = LineFile::read(file.path()).value_or("");
    benchmark::DoNotOptimize(LineFile::split(content).data());
  }
}

/// Each line to a document, whose fields are not looked at.
void parseLines(benchmark::State& state) {
  const std::string content = lines(startOfLog(state.range(0)));
  const auto all = LineFile::split(content);
  for (auto _ : state) {
    for (const std::string_view line : all) benchmark::DoNotOptimize(JsonReader::parse(line).isObject());
  }
}

/// The same, and its fields to a record.
void decodeLines(benchmark::State& state) {
  const std::string content = lines(startOfLog(state.range(0)));
  const auto all = LineFile::split(content);
  for (auto _ : state) {
    for (const std::string_view line : all) benchmark::DoNotOptimize(decodeJson<ShadowRecord>(line).index());
  }
}

/// Into a log that is trimmed whenever it is full, as a user's is. The queue's thread counts as well.
void appendRecords(benchmark::State& state) {
  const TemporaryFolder folder;
  ShadowLogFile file(folder.path() / "shadow.jsonl");
  const auto records = startOfLog(state.range(0));
  for (auto _ : state) {
    for (const ShadowRecord& record : records) file.append(record);
    file.drain();
  }
}

BENCHMARK(dragFeatures)->Arg(50)->Arg(100)->Arg(200)->Arg(401)->Arg(1000)->Arg(10'000);
BENCHMARK(lesson);
BENCHMARK(summarizeLog)->Arg(2500)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(reportText)->Unit(benchmark::kMicrosecond);
BENCHMARK(readLog)->Arg(2500)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(reportOnLog)->Arg(2500)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(readLines)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(parseLines)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeLines)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(appendRecords)->Arg(1000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

}  // namespace
}  // namespace tilwin
