// What one command costs the program itself, apart from the desktop it works. The floor is the provider's own
// calls, measured in the same run, so that the ratios mean the same on a fast machine and a slow one.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "core/snap/SnapController.h"
#include "platform/simulated/SimulatedDesktop.h"

namespace tilwin {
namespace {

constexpr Rect area{0, 25, 1440, 875};
constexpr Rect somewhere{100, 100, 800, 600};

/// Two displays and ten windows, the last of which has the focus.
struct Bench {
  Bench() {
    desktop.windows.reserve(1, {.top = 25});
    for (int window = 0; window < 10; ++window) desktop.windows.open({.frame = somewhere});
  }

  SimulatedDesktop desktop{"1440x900+0+0,2560x1440+1440-200"};
  std::shared_ptr<WindowProvider> provider = desktop.provider();
  SnapController controller{provider};
};

/// What any command has to ask of the provider: the focused window, the displays, one move.
void providerCalls(benchmark::State& state) {
  Bench bench;
  Rect target{0, 25, 720, 875};
  for (auto _ : state) {
    const auto window = bench.provider->focusedWindow();
    const auto displays = bench.provider->displays();
    target.width = target.width == 720 ? 960 : 720;
    benchmark::DoNotOptimize(displays.data());
    benchmark::DoNotOptimize(bench.provider->setFrame(window->id, target));
  }
}

void perform(benchmark::State& state, SnapAction action) {
  Bench bench;
  for (auto _ : state) {
    if (!bench.controller.perform(action)) state.SkipWithError("the action failed");
  }
}

/// Two commands, so its floor is twice the provider's calls.
void moveAndRestore(benchmark::State& state) {
  Bench bench;
  for (auto _ : state) {
    const bool moved = bench.controller.perform(SnapAction::topRight);
    if (!bench.controller.perform(SnapAction::restore) || !moved) state.SkipWithError("an action failed");
  }
}

/// One action's frame, the mean over all of them.
void frame(benchmark::State& state) {
  const auto actions = SnapActions::all();
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(SnapActions::frame(actions[next], somewhere, area, 8, 8));
    next = next + 1 == actions.size() ? 0 : next + 1;
  }
}

BENCHMARK(providerCalls);
BENCHMARK_CAPTURE(perform, cyclingWidths, SnapAction::leftHalf);
BENCHMARK_CAPTURE(perform, nextDisplay, SnapAction::nextDisplay);
BENCHMARK(moveAndRestore);
BENCHMARK(frame);

/// Keeps the median processor time of each benchmark's repetitions while it prints them.
class Summary : public benchmark::ConsoleReporter {
public:
  Summary() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
        medians_[run.run_name.function_name] = run.GetAdjustedCPUTime();
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void print() const {
    if (medians_.size() < 5) return;  // only some were asked for
    const double floor = median("providerCalls");
    std::printf("\nfloor, the provider's calls alone: %.0f ns\n", floor);
    printOwn("perform/cyclingWidths", floor);
    printOwn("perform/nextDisplay", floor);
    printOwn("moveAndRestore", 2 * floor);
    std::printf("%-24s %7.1f ns, goal under 50 ns\n", "frame of one action", median("frame"));
  }

private:
  [[nodiscard]] double median(const std::string& name) const { return medians_.at(name); }

  void printOwn(const char* name, double floor) const {
    const double whole = median(name);
    std::printf("%-24s %7.0f ns whole, %.2f times its floor; own time %.0f ns, goal under 1000 ns\n", name,
                whole, whole / floor, whole - floor);
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
  summary.print();
}
