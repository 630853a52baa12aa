#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <random>
#include <thread>

#include "tests/desktop/afternoon/Afternoon.h"
#include "tests/desktop/harness/Descriptor.h"
#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

constexpr int deaths = 10;
/// From before the icon is there to well into what a person does then.
constexpr Milliseconds latestDeath{3000};
constexpr int slides = 10;
constexpr double farthest = 32;
constexpr std::size_t mostAreas = 12;

/// What a person has asked for so far; the last of it may not have been done yet.
struct Asked {
  double outerLeast = 0;
  double outerMost = 0;
  Names layouts;
  Names areas;
};

/// Whether these are all names asked for, but perhaps the last one.
testing::AssertionResult holds(const Names& saved, const Names& asked) {
  const Names butLast(asked.begin(), asked.end() - (asked.empty() ? 0 : 1));
  if (saved == asked || saved == butLast) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "asked for " << testing::PrintToString(asked) << ", saved "
                                     << testing::PrintToString(saved);
}

/// The one given by --gtest_random_seed, to see the same moments again; any other if none is.
int chosenSeed() {
  constexpr unsigned largest = 99999;
  const int given = GTEST_FLAG_GET(random_seed);
  return given != 0 ? given : static_cast<int>(std::random_device()() % largest + 1);
}

/// Kills a process at a moment, whatever else happens.
class Death {
public:
  Death(pid_t process, Clock::time_point moment)
      : thread_([process = ProcessHandle(process), moment] {
          std::this_thread::sleep_until(moment);
          process.signal(SIGKILL);
        }) {}

private:
  std::jthread thread_;
};

}  // namespace

/// A person at work, while Tilwin dies.
class Killed : public testing::Test {
protected:
  void SetUp() override {
    std::cout << "seed " << seed_ << "\n";
    day_.startTilwin();
    workOnce();
    endTilwin();
  }

  void workOnce();
  void workUntilDeath();
  void expectWholeFiles();
  void expectToServe();

  void moveMargin();
  void saveArrangement();
  void saveArea();

  void endTilwin() {
    day_.tilwin().signal(SIGTERM);
    ASSERT_EQ(day_.tilwinEnds(), endedWell);
  }
  Clock::time_point nextDeath() {
    return Clock::now() + Milliseconds{std::uniform_int_distribution<long>(0, latestDeath.count())(random_)};
  }

  const int seed_ = chosenSeed();
  std::mt19937 random_{static_cast<unsigned>(seed_)};
  Afternoon day_;
  TestWindow window_ = day_.session().window();
  Asked asked_;
};

void Killed::moveMargin() {
  day_.openSettings();
  day_.input().press("Tab");  // from the sections to the first slider
  const bool isUp = asked_.outerMost + slides <= farthest;
  (isUp ? asked_.outerMost : asked_.outerLeast) += isUp ? slides : -slides;
  for (int slide = 0; slide < slides; ++slide) day_.input().press(isUp ? "Right" : "Left");
  day_.closeSettings();
  // The window handles its keys in order.
  (isUp ? asked_.outerLeast : asked_.outerMost) = isUp ? asked_.outerMost : asked_.outerLeast;
}

void Killed::saveArrangement() {
  const int saved = static_cast<int>(asked_.layouts.size());
  asked_.layouts.push_back("desk " + std::to_string(saved));
  day_.answer({row::layouts, saved + 1}, asked_.layouts.back());
}

void Killed::saveArea() {
  if (asked_.areas.size() == mostAreas) return;
  if (!day_.desktop().activate(window_.id())) throw HarnessError("the window cannot be focused");
  asked_.areas.push_back("area " + std::to_string(asked_.areas.size()));
  day_.answer({row::customAreas, -1}, asked_.areas.back());
}

void Killed::workOnce() {
  moveMargin();
  saveArrangement();
  saveArea();
}

/// What does not come about because Tilwin is dead is no failure.
void Killed::workUntilDeath() {
  try {
    day_.waitFor([this] { return day_.icon().area().has_value(); }, "the icon is there", startTimeout);
    while (day_.tilwin().running()) workOnce();
  } catch (const HarnessError&) {
    if (day_.tilwin().running()) throw;
  }
  EXPECT_EQ(day_.tilwinEnds(), (ExitStatus{.code = std::nullopt, .signal = SIGKILL})) << day_.log();
}

void Killed::expectWholeFiles() {
  const auto settings = savedSettings(day_.session().home());
  const auto layouts = savedLayouts(day_.session().home());
  ASSERT_TRUE(settings && layouts);
  EXPECT_GE(settings->outer, asked_.outerLeast);
  EXPECT_LE(settings->outer, asked_.outerMost);
  EXPECT_TRUE(holds(settings->areas, asked_.areas));
  EXPECT_TRUE(holds(layouts->names, asked_.layouts));
  asked_ = {.outerLeast = settings->outer,
            .outerMost = settings->outer,
            .layouts = layouts->names,
            .areas = settings->areas};
}

void Killed::expectToServe() {
  day_.startTilwin();
  EXPECT_EQ(day_.log().find("can be read"), std::string::npos) << day_.log();
  day_.placeByHand(window_.id(), startFrame);
  ASSERT_TRUE(day_.desktop().activate(window_.id()));
  day_.input().press("Control+Alt+u");
  const Rect room = day_.room();
  const double margin = asked_.outerMost;
  EXPECT_TRUE(day_.stands(
      window_.id(), {room.x + margin, room.y + margin, room.width / 2 - margin, room.height / 2 - margin}));
  endTilwin();
}

TEST_F(Killed, AtAnyMomentItHasItsSettingsAndLayoutsWholeAtTheNextStart) {
  for (int death = 1; death <= deaths && !HasFailure(); ++death) {
    SCOPED_TRACE("death " + std::to_string(death) + " of seed " + std::to_string(seed_));
    day_.launchTilwin();
    const Death killer(day_.tilwin().pid(), nextDeath());
    workUntilDeath();
    expectWholeFiles();
    expectToServe();
  }
}

}  // namespace tilwin::desktop
