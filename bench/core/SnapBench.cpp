// What one command costs the program itself, apart from the desktop it works. The floor is the provider's own
// calls, measured in the same run, so that the ratios mean the same on a fast machine and a slow one.

#include <benchmark/benchmark.h>

#include <memory>
#include <string_view>

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

}  // namespace
}  // namespace tilwin
