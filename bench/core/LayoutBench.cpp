// Planning, capturing, loading and writing layouts, each at one size and at twice that size.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/layouts/LayoutPlanner.h"
#include "core/layouts/LayoutsFile.h"
#include "tests/TemporaryFolder.h"

namespace tilwin {
namespace {

constexpr int differentApplications = 40;

std::string bundleID(int index) {
  return "org.example.Application" + std::to_string(index % differentApplications);
}

std::vector<DisplayInfo> fourDisplays() {
  std::vector<DisplayInfo> displays;
  for (std::uint32_t id = 1; id <= 4; ++id) {
    const Rect frame{1920.0 * (4 - id), 0, 1920, 1080};
    displays.push_back({id, frame, frame, id == 1});
  }
  return displays;
}

std::vector<WindowInfo> windows(std::int64_t count) {
  std::vector<WindowInfo> result;
  for (int id = 1; id <= count; ++id) {
    result.push_back({.id = id,
                      .bundleID = bundleID(id),
                      .appName = "Application " + std::to_string(id % differentApplications),
                      .title = "Résumé " + std::to_string(id) + " – Application",
                      .frame = {1.0 * (id * 37 % 7000), 1.0 * (id * 17 % 900), 640, 480},
                      .zOrder = std::int64_t{id} * 7919 % count});
  }
  return result;
}

/// By identifier, by name, and every third narrowed by a title.
Layout layout(std::int64_t slots) {
  Layout result{.id = Uuid::random(), .name = "Desk"};
  for (int index = 0; index < slots; ++index) {
    LayoutSlot slot{.displayIndex = index % 4, .target = NormalizedRect{0.25, 0.25, 0.5, 0.5}};
    if (index % 2 == 0) slot.bundleID = bundleID(index);
    if (index % 2 != 0) slot.appName = "APPLICATION " + std::to_string(index % differentApplications);
    if (index % 3 == 0) slot.titleContains = "resume " + std::to_string(index % 10);
    result.slots.push_back(slot);
  }
  return result;
}

void plan(benchmark::State& state) {
  const Layout slots = layout(state.range(0));
  const auto open = windows(state.range(1));
  const auto displays = fourDisplays();
  for (auto _ : state)
    benchmark::DoNotOptimize(LayoutPlanner::plan(slots, open, displays, 8, 8, false).placements.data());
}

void capture(benchmark::State& state) {
  const auto open = windows(state.range(0));
  const auto displays = fourDisplays();
  for (auto _ : state)
    benchmark::DoNotOptimize(LayoutPlanner::snapshot(open, displays, "Desk", false, {}).slots.data());
}

class StoreFile {
public:
  explicit StoreFile(std::int64_t layouts) {
    LayoutStore store;
    for (; layouts > 0; --layouts) store.save(layout(12));
    store.write(path());
  }

  [[nodiscard]] std::filesystem::path path() const { return folder_.path() / "layouts.json"; }

private:
  TemporaryFolder folder_;
};

void loadAndWrite(benchmark::State& state) {
  const StoreFile file(state.range(0));
  LayoutsFile layouts(file.path());
  for (auto _ : state) layouts.write(layouts.load());
}

void load(benchmark::State& state) {
  const StoreFile file(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(LayoutStore::load(file.path()).layouts.data());
}

BENCHMARK(plan)->Args({200, 1000})->Args({400, 1000})->Args({200, 2000})->Unit(benchmark::kMicrosecond);
BENCHMARK(capture)->Arg(1000)->Arg(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadAndWrite)->Arg(500)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(load)->Arg(500)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tilwin
