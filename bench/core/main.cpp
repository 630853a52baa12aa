// Runs the core's benchmarks, then says what their medians mean: own time above the floor of the same run,
// and how cost grows when there is twice as much to do.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace tilwin {
namespace {

constexpr double nanosecond = 1;
constexpr double microsecond = 1e3;
constexpr double millisecond = 1e6;

/// A command whose own time is what it takes above calls that any such command has to make.
struct Own {
  const char* name;
  double floors;  ///< how many commands it is
};
constexpr std::array owns{Own{"perform/cyclingWidths", 1}, Own{"perform/nextDisplay", 1},
                          Own{"moveAndRestore", 2}};

/// Something whose cost should grow with what there is to do, not faster.
struct Growth {
  const char* what = nullptr;
  const char* once = nullptr;
  const char* more = nullptr;  ///< the same with more to do; null for none
  double unit = 1;
  const char* unitName = nullptr;
  double goal = 0;  ///< for `once`, in that unit; 0 for none
  int times = 2;    ///< how much more there is to do
};
constexpr std::array growths{
    Growth{"frame of one action", "frame", nullptr, nanosecond, "ns", 50},
    Growth{"plan 200 slots, 1,000 windows; twice the slots", "plan/200/1000", "plan/400/1000", microsecond,
           "us", 1000},
    Growth{"plan 200 slots, 1,000 windows; twice the windows", "plan/200/1000", "plan/200/2000", microsecond,
           "us", 1000},
    Growth{"capture 1,000 windows", "capture/1000", "capture/2000", microsecond, "us", 0},
    Growth{"parse 2,000 characters, ASCII", "parsePhrases/ascii/2000", "parsePhrases/ascii/4000", microsecond,
           "us", 100},
    Growth{"parse 2,000 characters with accents", "parsePhrases/accents/2000", "parsePhrases/accents/4000",
           microsecond, "us", 100},
    Growth{"parse one piece of 2,000 characters", "parseOnePiece/2000", "parseOnePiece/4000", microsecond,
           "us", 100},
    Growth{"resolve it among 200 applications", "resolvePhrases/200", "resolvePhrases/400", microsecond, "us",
           0},
    Growth{"load 500 layouts of 12 slots", "load/500", "load/1000", millisecond, "ms", 0},
    Growth{"load and write them", "loadAndWrite/500", "loadAndWrite/1000", millisecond, "ms", 30},
    Growth{"features of a drag of 50 samples", "dragFeatures/50", "dragFeatures/100", nanosecond, "ns", 0},
    Growth{"features of a drag of 100 samples", "dragFeatures/100", "dragFeatures/200", nanosecond, "ns", 0},
    Growth{"features of a drag of 200 samples", "dragFeatures/200", "dragFeatures/401", nanosecond, "ns", 0},
    Growth{"features of a drag of 401 samples", "dragFeatures/401", nullptr, microsecond, "us", 20},
    Growth{"features of a drag of 100 samples", "dragFeatures/100", "dragFeatures/1000", nanosecond, "ns", 0,
           10},
    Growth{"features of a drag of 1,000 samples", "dragFeatures/1000", "dragFeatures/10000", nanosecond, "ns",
           0, 10},
    Growth{"one lesson of the drag model", "lesson", nullptr, nanosecond, "ns", 0},
    Growth{"summarize 2,500 drags", "summarizeLog/2500", "summarizeLog/5000", millisecond, "ms", 0},
    Growth{"text of the drag report", "reportText", nullptr, microsecond, "us", 0},
    Growth{"read a drag log of 2,500 lines", "readLog/2500", "readLog/5000", millisecond, "ms", 0},
    Growth{"read and report on 2,500 drags", "reportOnLog/2500", "reportOnLog/5000", millisecond, "ms", 0},
    Growth{"read and report on 5,000 drags", "reportOnLog/5000", nullptr, millisecond, "ms", 15},
    Growth{"append 1,000 drags to the log", "appendRecords/1000", nullptr, millisecond, "ms", 0},
};

/// How much of a whole is spent in a part of it, measured apart.
struct Share {
  const char* part;
  const char* whole;
};
constexpr std::array shares{
    Share{"readLines/5000", "reportOnLog/5000"}, Share{"parseLines/5000", "reportOnLog/5000"},
    Share{"decodeLines/5000", "reportOnLog/5000"}, Share{"summarizeLog/5000", "reportOnLog/5000"}};

/// Keeps the median processor time of each benchmark's repetitions while it prints them.
class Summary : public benchmark::ConsoleReporter {
public:
  Summary() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
      const auto& name = run.run_name;
      medians_[name.function_name + (name.args.empty() ? "" : "/" + name.args)] =
          run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e9;
    }
    ConsoleReporter::ReportRuns(runs);
  }

  /// Only of what was asked for and has been run.
  void print() const {
    for (const Own& own : owns) printOwn(own);
    for (const Growth& growth : growths) printGrowth(growth);
    for (const Share& share : shares) printShare(share);
  }

private:
  /// In nanoseconds; 0 when it was not run.
  [[nodiscard]] double median(const char* name) const {
    const auto found = medians_.find(name);
    return found == medians_.end() ? 0 : found->second;
  }

  void printOwn(const Own& own) const {
    const double whole = median(own.name);
    const double floor = own.floors * median("providerCalls");
    if (whole <= 0 || floor <= 0) return;
    std::printf("%-50s %8.0f ns whole, %.2f times its floor; own time %.0f ns, goal under %.0f ns\n",
                own.name, whole, whole / floor, whole - floor, own.floors * 1000);
  }

  void printGrowth(const Growth& growth) const {
    const double once = median(growth.once);
    const double more = growth.more == nullptr ? 0 : median(growth.more);
    if (once <= 0) return;
    std::printf("%-50s %8.1f %s", growth.what, once / growth.unit, growth.unitName);
    if (growth.goal > 0) std::printf(", goal under %.0f %s", growth.goal, growth.unitName);
    if (more > 0) std::printf(", for %d times as much %.2f times", growth.times, more / once);
    std::printf("\n");
  }

  void printShare(const Share& share) const {
    const double part = median(share.part);
    const double whole = median(share.whole);
    if (part > 0 && whole > 0)
      std::printf("%-50s %8.0f %% of %s\n", share.part, 100 * part / whole, share.whole);
  }

  std::map<std::string, double> medians_;
};

}  // namespace
}  // namespace tilwin

int main(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string repetitions = "--benchmark_repetitions=5";
  std::string aggregates = "--benchmark_report_aggregates_only=true";
  arguments.insert(arguments.begin() + 1, {repetitions.data(), aggregates.data()});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  tilwin::Summary summary;
  benchmark::RunSpecifiedBenchmarks(&summary);
  std::printf("\n");
  summary.print();
}
