// How long it takes from a key press until the window stands, as multiples of the least it can take: one
// request to the window manager. And what Tilwin costs besides: starting, memory, wake-ups.

#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/desktop/Commands.h"
#include "bench/desktop/Dragging.h"
#include "bench/desktop/Halves.h"
#include "bench/desktop/Movers.h"
#include "tests/desktop/harness/ExitGuard.h"
#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/ReadyLine.h"
#include "tests/desktop/harness/ResourceUse.h"

namespace {

using namespace tilwin;
using namespace tilwin::bench;

constexpr int rounds = 4;
constexpr desktop::Milliseconds restTime{10000};
/// Until what moves have left to be done is done: late looks at the window, and the file of layouts.
constexpr desktop::Milliseconds windDownTime{6000};
constexpr desktop::Milliseconds dragTime{10000};
constexpr int previews = 50;
constexpr int throws = 20;

struct Arguments {
  std::filesystem::path tilwin;
  int presses = 200;
  std::optional<desktop::Manager> only;  ///< the one window manager to measure under
};

constexpr std::array managers{desktop::Manager::openbox, desktop::Manager::xfwm4, desktop::Manager::metacity,
                              desktop::Manager::kwin};

void printTitle() {
  std::printf("  %-28s %8s %8s %8s   %8s %8s %8s\n", "", "median", "p90", "p99", "×floor", "×floor",
              "×floor");
}

void printRow(const std::string& name, const Latencies& measured, const Latencies& floor) {
  std::printf("  %-28s %5.2f ms %5.2f ms %5.2f ms  ", name.c_str(), measured.percentile(0.5),
              measured.percentile(0.9), measured.percentile(0.99));
  for (const double share : {0.5, 0.9, 0.99}) {
    std::printf(" %8.2f", measured.percentile(share) / floor.percentile(share));
  }
  std::printf("\n");
}

/// In turns, so that whatever else the machine does concerns all of them alike.
template <typename SomeMover>
std::vector<Latencies> measureAll(const std::vector<SomeMover>& movers, desktop::Session& session,
                                  desktop::TestWindow& window, int moves) {
  std::vector<Latencies> latencies(movers.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t index = 0; index < movers.size(); ++index) {
      measure(movers[index], session, window, moves / rounds, latencies[index]);
    }
  }
  return latencies;
}

void compareMovers(desktop::Session& session, desktop::TestWindow& window, int moves) {
  const auto movers = moversFor(session, window);
  const auto latencies = measureAll(movers, session, window, moves);
  std::printf("%s, %zu presses each\n", session.manager().traits().name,
              latencies.front().milliseconds.size());
  printTitle();
  for (std::size_t index = 0; index < movers.size(); ++index) {
    printRow(movers[index].name, latencies[index], latencies[movers[index].floor]);
  }
}

void compareHalves(desktop::Session& session, desktop::TestWindow& window, int moves) {
  const auto movers = halvesMoversFor(session, window);
  const auto latencies = measureAll(movers, session, window, moves);
  std::printf("  From one half to the other:\n");
  for (std::size_t index = 0; index < movers.size(); ++index) {
    printRow(movers[index].name, latencies[index], latencies.front());
  }
}

/// The same move by programs that are started for it. Below what the request alone takes there is nothing to
/// be gained.
void compareCommands(desktop::Session& session, desktop::TestWindow& window, const Arguments& arguments) {
  if (session.manager().traits().manager == desktop::Manager::kwin) return;  // wmctrl moves nothing there
  const auto request = moversFor(session, window).front();
  auto movers = commandMoversFor(session, window, arguments.tilwin, request);
  movers.push_back(request);
  const auto latencies = measureAll(movers, session, window, arguments.presses);
  std::printf("  From starting a process (× wmctrl; goal for the median: %.2f):\n", commandGoal);
  for (std::size_t index = 0; index < movers.size(); ++index) {
    printRow(movers[index].name, latencies[index], latencies.front());
  }
}

void printCosts(desktop::Session& session, pid_t tilwin, desktop::Clock::duration startTime) {
  session.desktop().waitUntil([] { return false; }, windDownTime);
  const auto before = desktop::useOf(tilwin);
  session.desktop().waitUntil([] { return false; }, restTime);
  const auto after = desktop::useOf(tilwin);
  if (!before || !after) throw desktop::HarnessError("Tilwin has ended");
  const std::chrono::duration<double, std::milli> taken = startTime;
  const double minutes = std::chrono::duration<double, std::ratio<60>>(restTime).count();
  std::printf(
      "  Tilwin: %.0f ms from start to hot keys grabbed, %lld KiB (PSS), %.0f wake-ups a minute at rest\n",
      taken.count(), static_cast<long long>(after->proportionalKiB),
      static_cast<double>(after->wakeUps - before->wakeUps) / minutes);
}

void printThrows(desktop::Session& session, desktop::TestWindow& window,
                 desktop::Milliseconds afterLastMove) {
  const auto result = throwToTheLeft(session, window, afterLastMove, throws);
  std::printf("  Let go %lld ms after the last move: %zu of %d snapped",
              static_cast<long long>(afterLastMove.count()), result.settled.milliseconds.size(),
              result.thrown);
  if (!result.settled.milliseconds.empty()) {
    std::printf(", settled after %.1f ms (median), %.1f ms at most (goal: 45 ms)",
                result.settled.percentile(0.5), result.settled.percentile(1));
  }
  std::printf("\n");
}

void printDragCosts(desktop::Session& session, desktop::TestWindow& window, pid_t tilwin) {
  session.desktop().place(window.id(), apart);
  session.desktop().waitForFrame(window.id(), apart);
  const auto preview = timesToPreview(session, window, previews);
  const auto cost = costOfDragging(session, window, tilwin, dragTime);
  std::printf("  Preview mapped after the pointer has come: median %.2f ms, longest %.2f ms\n",
              preview.percentile(0.5), preview.percentile(1));
  std::printf("  Dragging for 10 s: Tilwin %.2f %% of a processor (goal: %.1f %%), %s %.2f %%\n",
              cost.tilwin * 100, dragCostGoal * 100, session.manager().traits().name, cost.manager * 100);
  for (const int afterLastMove : {0, 8}) printThrows(session, window, desktop::Milliseconds{afterLastMove});
  std::printf("\n");
  std::fflush(stdout);
}

void compareUnder(desktop::Manager manager, const Arguments& arguments) {
  desktop::Session session({.manager = manager, .setup = {.nativeTileKeys = true}});
  desktop::TestWindow window = session.window();
  if (!session.desktop().activate(window.id())) throw desktop::HarnessError("the window cannot be focused");
  const auto begun = desktop::Clock::now();
  const auto tilwin =
      desktop::startReady({.argv = {arguments.tilwin.string()}, .environment = session.environment()},
                          desktop::startTimeout, STDERR_FILENO);
  const auto startTime = desktop::Clock::now() - begun;
  const auto sxhkd = startSxhkd(session, window);

  waitForOwnKeys(session, window);

  compareMovers(session, window, arguments.presses);
  compareHalves(session, window, arguments.presses);
  compareCommands(session, window, arguments);
  printCosts(session, tilwin.process.pid(), startTime);
  printDragCosts(session, window, tilwin.process.pid());
}

}  // namespace

int main(int argc, char** argv) {
  const desktop::EndOnSignal endOnSignal;
  Arguments arguments;
  for (int index = 1; index + 1 < argc; index += 2) {
    const std::string_view option = argv[index];
    if (option == "--tilwin") arguments.tilwin = std::filesystem::absolute(argv[index + 1]);
    if (option == "--presses") arguments.presses = std::atoi(argv[index + 1]);
    if (option == "--window-manager") arguments.only = desktop::managerNamed(argv[index + 1]);
  }
  if (arguments.tilwin.empty() || arguments.presses < rounds) {
    std::fputs("usage: bench-desktop --tilwin PROGRAM [--presses 200] [--window-manager kwin]\n", stderr);
    return 2;
  }
  try {
    for (const auto manager : managers) {
      if (arguments.only.value_or(manager) == manager) compareUnder(manager, arguments);
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "The benchmark cannot go on: %s\n", error.what());
    return 1;
  }
}
