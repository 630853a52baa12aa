#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <optional>
#include <string>
#include <thread>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/floods/Floods.h"
#include "tests/desktop/floods/RequestWatch.h"
#include "tests/desktop/harness/ResourceUse.h"

namespace tilwin::desktop {

namespace {

constexpr Milliseconds longest{250};
/// A press that comes while everything is stale takes as many round trips.
constexpr int roundTrips = 12;
constexpr Milliseconds patience{5000};
constexpr Milliseconds flooded{1500};
constexpr Milliseconds recovery{1000};
constexpr Milliseconds restTime{300};
constexpr std::int64_t mostMemory = 10240;  // KiB
constexpr int presses = 6;

constexpr const char* rightHalfKeys = "Control+Alt+Right";
constexpr PixelPoint onPanel{900, 20};

void pass(Milliseconds time) { std::this_thread::sleep_for(time); }

/// A desktop with a panel, a snapped window and a focused one, and a client that floods it.
class Floods : public DesktopTest, public testing::WithParamInterface<Flood> {
protected:
  void SetUp() override {
    session().input().movePointer(onPanel);
    focus(snapped_.id());
    press(leftHalfKeys);
    EXPECT_TRUE(stands(snapped_.id(), {0, 40, 960, 1040}));
    focus(focused_.id());
    before_ = memory();
  }

  /// Some window managers would be busy with what has come for minutes.
  void relieveManager() {
    if (!GetParam().drownsManagers) return;
    session().manager().restart();
    focus(focused_.id());
  }

  std::unique_ptr<HostileClient> flood(const Flood& kind) {
    auto& client = desktop().connection();
    auto hostile = std::make_unique<HostileClient>(
        session().server().display(),
        kind.make(client, {.focused = focused_.id(), .panel = panel_.id(), .snapped = snapped_.id()}));
    pass(restTime);
    return hostile;
  }

  /// Presses the shortcut of a half and returns how long it takes until the window is asked to go there.
  std::optional<Milliseconds> answerTo(const char* keys) {
    const bool isRight = std::string(keys) == rightHalfKeys;
    requests_.forget();
    const auto pressed = session().input().press(keys);
    const auto asked = requests_.wait(
        focused_.id(), [&](int left) { return (left > 480) == isRight; }, patience);
    if (!asked) return std::nullopt;
    return std::chrono::ceil<Milliseconds>(*asked - pressed);
  }

  /// The longest answer to presses one after the other; the patience if one is not answered.
  Milliseconds longestAnswer() {
    Milliseconds result{0};
    for (int count = 0; count < presses; ++count) {
      result = std::max(result, answerTo(count % 2 == 0 ? rightHalfKeys : leftHalfKeys).value_or(patience));
    }
    return result;
  }

  /// What nobody can be faster than while the server has so much else to do: its round trips.
  static Milliseconds floor() {
    const auto begin = Clock::now();
    for (int count = 0; count < roundTrips; ++count) desktop().connection().sync();
    return std::chrono::ceil<Milliseconds>(Clock::now() - begin);
  }

  static std::int64_t memory() {
    return useOf(tilwin().process().pid()).value_or(ResourceUse()).proportionalKiB;
  }
  std::int64_t growth() const { return memory() - before_; }

  static std::chrono::nanoseconds processorTime() {
    return std::chrono::nanoseconds(useOf(tilwin().process().pid()).value_or(ResourceUse()).processorTime);
  }

private:
  TestWindow panel_ = session().window({.title = "Panel",
                                        .area = {0, 0, 1920, 40},
                                        .kind = WindowKind::dock,
                                        .strut = {.top = 40},
                                        .strutSpans = {0, 0, 0, 0, 0, 1919, 0, 0}});
  TestWindow snapped_ = session().window({.title = "Snapped"});
  TestWindow focused_ = session().window({.title = "Focused", .undecorated = true});
  RequestWatch requests_{session().server().display()};
  std::int64_t before_ = 0;
};

}  // namespace

TEST_P(Floods, KeepNoPressWaitingTakeNoMemoryAndLeaveNothingBehind) {
  const auto begin = Clock::now();
  auto hostile = flood(GetParam());
  const auto during = longestAnswer();
  const auto least = floor();
  EXPECT_LE(during, std::max(longest, 2 * least)) << least.count();
  std::this_thread::sleep_until(begin + flooded);
  const auto grown = growth();
  EXPECT_LE(grown, mostMemory);
  const auto rounds = hostile->rounds();
  EXPECT_EQ(hostile->refused(), 0U);
  const auto lasted = std::chrono::duration<double>(Clock::now() - begin).count();
  hostile.reset();
  relieveManager();
  pass(recovery);
  const auto after = longestAnswer();
  EXPECT_LE(after, longest);
  EXPECT_LE(growth(), mostMemory);
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
