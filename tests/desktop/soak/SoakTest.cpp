#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <deque>
#include <exception>
#include <map>
#include <memory>
#include <string>

#include "tests/desktop/harness/ResourceUse.h"
#include "tests/desktop/soak/Acts.h"
#include "tests/desktop/soak/Scenery.h"
#include "tests/desktop/soak/Soak.h"

namespace tilwin::desktop::soak {

namespace {

constexpr int windowsAtFirst = 3;
constexpr std::size_t actsRemembered = 12;
constexpr std::size_t logLines = 20;

/// One run: acts until the time is over or enough are done.
class Soak {
public:
  explicit Soak(const SoakArguments& arguments)
      : arguments_(arguments), until_(Clock::now() + arguments.time) {}

  void begin() {
    Dice dice(arguments_.seed, 0);
    const auto manager = dice.oneOf(soakManagers);
    remember(std::string("begins under ") + traits(manager).name);
    desktop_ = std::make_unique<SoakDesktop>(arguments_.tilwin, manager);
    for (int left = windowsAtFirst; left > 0; --left) openAWindow(*desktop_, dice);
    remember(desktop_->takeNotes());
  }

  [[nodiscard]] bool isOver() const {
    return arguments_.acts ? number_ >= *arguments_.acts : Clock::now() >= until_;
  }

  void goOn() {
    Dice dice(arguments_.seed, ++number_);
    const Act& act = choose(desktop_->model(), dice);
    ++counts_[act.name];
    act.perform(*desktop_, dice);
    remember(desktop_->takeNotes());
    largest_ = std::max(largest_, memory());
  }

  /// What somebody needs who has to find out why.
  std::string report(const std::string& reason) {
    if (desktop_) remember(desktop_->takeNotes());
    std::string said = reason + "\nThe last acts:\n";
    for (const auto& act : last_) said += "  " + act + "\n";
    said += "To do it again: soak-tests --tilwin " + arguments_.tilwin.string() + " --seed " +
            std::to_string(arguments_.seed) + " --acts " + std::to_string(number_) + "\n";
    if (desktop_) said += "Tilwin's log ends:\n" + lastLines(desktop_->tilwin().log(), logLines);
    return said;
  }

  std::string summary() {
    std::string said = std::to_string(number_) + " acts; Tilwin has " + std::to_string(memory()) +
                       " KiB (PSS), and had " + std::to_string(largest_) + " KiB at most\n";
    for (const auto& [name, count] : counts_) said += "  " + std::to_string(count) + " × " + name + "\n";
    return said;
  }

private:
  void remember(const std::string& what) {
    last_.push_back("act " + std::to_string(number_) + ": " + what);
    if (arguments_.isTold) std::printf("%s\n", last_.back().c_str());
    if (last_.size() > actsRemembered) last_.pop_front();
  }

  [[nodiscard]] std::int64_t memory() {
    return useOf(desktop_->tilwin().process().pid()).value_or(ResourceUse()).proportionalKiB;
  }

  SoakArguments arguments_;
  Clock::time_point until_;
  std::unique_ptr<SoakDesktop> desktop_;
  std::uint32_t number_ = 0;
  std::map<std::string, int> counts_;
  std::deque<std::string> last_;
  std::int64_t largest_ = 0;
};

}  // namespace

SoakArguments& soakArguments() {
  static SoakArguments values;
  return values;
}

TEST(ADesktopOnWhichAnythingHappens, HasEveryWindowWhereItShouldBeAfterEachAct) {
  const auto& arguments = soakArguments();
  std::printf("seed %u\n", arguments.seed);
  std::fflush(stdout);
  Soak soak(arguments);
  try {
    soak.begin();
    while (!soak.isOver()) soak.goOn();
    std::printf("%s", soak.summary().c_str());
  } catch (const std::exception& wrong) {
    FAIL() << soak.report(wrong.what());
  }
}

}  // namespace tilwin::desktop::soak
