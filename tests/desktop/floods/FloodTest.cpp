#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <memory>
#include <string>
#include <thread>

#include "tests/desktop/floods/FloodedDesktop.h"
#include "tests/desktop/floods/Floods.h"

namespace tilwin::desktop {

namespace {

/// A press that comes while everything is stale takes as many round trips.
constexpr int roundTrips = 12;
constexpr Milliseconds flooded{1500};
constexpr Milliseconds recovery{1000};
constexpr Milliseconds restTime{300};

void pass(Milliseconds time) { std::this_thread::sleep_for(time); }

/// A client floods the desktop with what other programs do now and then.
class Floods : public FloodedDesktop, public testing::WithParamInterface<Flood> {
protected:
  /// Some window managers would be busy with what has come for minutes.
  void relieveManager() {
    if (!GetParam().drownsManagers) return;
    session().manager().restart();
    focus(focused().id());
  }

  std::unique_ptr<HostileClient> flood(const Flood& kind) {
    auto& client = desktop().connection();
    auto hostile = std::make_unique<HostileClient>(
        session().server().display(),
        kind.make(client, {.focused = focused().id(), .panel = panel().id(), .snapped = snapped().id()}));
    pass(restTime);
    return hostile;
  }

  /// What nobody can be faster than while the server has so much else to do: its round trips.
  static Milliseconds floor() {
    const auto begin = Clock::now();
    for (int count = 0; count < roundTrips; ++count) desktop().connection().sync();
    return std::chrono::ceil<Milliseconds>(Clock::now() - begin);
  }

  static std::chrono::nanoseconds processorTime() {
    return std::chrono::nanoseconds(useOf(tilwin().process().pid()).value_or(ResourceUse()).processorTime);
  }
};

}  // namespace

TEST_P(Floods, KeepNoPressWaitingTakeNoMemoryAndLeaveNothingBehind) {
  const auto begin = Clock::now();
  auto hostile = flood(GetParam());
  const auto during = longestAnswer();
  const auto least = floor();
  EXPECT_LE(during, std::max(FloodLimits::answer, 2 * least)) << least.count();
  std::this_thread::sleep_until(begin + flooded);
  const auto grown = growth();
  EXPECT_LE(grown, FloodLimits::memory);
  const auto rounds = hostile->rounds();
  EXPECT_EQ(hostile->refused(), 0U);
  const auto lasted = std::chrono::duration<double>(Clock::now() - begin).count();
  hostile.reset();
  relieveManager();
  pass(recovery);
  const auto after = longestAnswer();
  EXPECT_LE(after, FloodLimits::answer);
  EXPECT_LE(growth(), FloodLimits::memory);
  pass(recovery);
  const auto worked = processorTime();
  pass(restTime);
  EXPECT_LE(processorTime() - worked, restTime / 20);
  std::cout << GetParam().name << ": " << static_cast<int>(rounds / lasted) << " a second; answers within "
            << during.count() << " ms (" << roundTrips << " round trips took " << least.count() << " ms), "
            << after.count() << " ms after it; memory +" << grown << " KiB, +" << growth()
            << " KiB after it\n";
}

TEST_P(Floods, DoNotKeepItFromEndingWhenItIsAskedTo) {
  auto hostile = flood(GetParam());
  const auto asked = Clock::now();
  tilwin().process().signal(SIGTERM);
  EXPECT_EQ(tilwin().process().waitFor(patience), (ExitStatus{.code = 0, .signal = std::nullopt}));
  EXPECT_LE(Clock::now() - asked, recovery);
  hostile.reset();
  relieveManager();
  restartTilwin();
}

INSTANTIATE_TEST_SUITE_P(In, Floods, testing::ValuesIn(allFloods()),
                         [](const auto& flood) { return std::string(flood.param.name); });

}  // namespace tilwin::desktop
