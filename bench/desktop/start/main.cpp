// What starting, resting and the settings window cost, beside the least that a Qt program with a status icon
// can cost, in one run.

#include <sys/types.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/desktop/harness/ExitGuard.h"
#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/ResourceUse.h"
#include "tests/desktop/harness/Session.h"

namespace {

using namespace tilwin::desktop;
using Millis = std::chrono::duration<double, std::milli>;

constexpr int rounds = 10;
constexpr Milliseconds untilItRests{3000};
constexpr Milliseconds restTime{60000};
constexpr Milliseconds oneBurst{100};

struct Programs {
  std::string tilwin;
  std::string bare;
};

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

/// Whether a panel has taken in a window of this process.
bool hasIcon(XConnection& x, xcb_window_t under, pid_t process, bool isTop = true) {
  const XcbPtr<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(x.get(), xcb_query_tree(x.get(), under), nullptr));
  if (!tree) return false;
  const auto* children = xcb_query_tree_children(tree.get());
  for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
    const auto owner = x.numbers(children[index], "_NET_WM_PID");
    if (!isTop && owner == std::vector{static_cast<std::uint32_t>(process)}) return true;
    if (hasIcon(x, children[index], process, false)) return true;
  }
  return false;
}

void pause(Session& session, Milliseconds time) {
  session.desktop().waitUntil([] { return false; }, time);
}

struct Start {
  double toIcon = 0;
  double toHotKeys = 0;  ///< of Tilwin only
};

Start measureStart(Session& session, const std::string& program, bool hasHotKeys) {
  XConnection x(session.server().display());
  const auto begun = Clock::now();
  const auto sinceBegun = [&] { return Millis(Clock::now() - begun).count(); };
  ChildProcess process = session.start("start", {program});
  const auto offset = process.output().size();
  Start start;
  const auto deadline = begun + startTimeout;
  while (start.toIcon == 0 || (hasHotKeys && start.toHotKeys == 0)) {
    if (Clock::now() > deadline) throw HarnessError(program + " shows no icon: " + process.output());
    if (start.toIcon == 0 && hasIcon(x, x.root(), process.pid())) start.toIcon = sinceBegun();
    if (!hasHotKeys || start.toHotKeys != 0) continue;
    if (process.output().find("shortcuts work", offset) != std::string::npos) start.toHotKeys = sinceBegun();
  }
  return start;
}

void compareStarts(Session& session, const Programs& programs) {
  std::vector<double> tilwin;
  std::vector<double> hotKeys;
  std::vector<double> bare;
  for (int round = 0; round < rounds; ++round) {
    const auto start = measureStart(session, programs.tilwin, true);
    tilwin.push_back(start.toIcon);
    hotKeys.push_back(start.toHotKeys);
    bare.push_back(measureStart(session, programs.bare, false).toIcon);
  }
  const double all = std::max(median(tilwin), median(hotKeys));
  std::printf(
      "Start, medians of %d: hot keys grabbed after %.0f ms, icon shown after %.0f ms; the bare program's "
      "icon after %.0f ms: %.2f x\n",
      rounds, median(hotKeys), median(tilwin), median(bare), all / median(bare));
}

struct Rest {
  int wakeUps = 0;  ///< a burst of work counts once: it wakes the processor once
  std::int64_t contextSwitches = 0;
  long long kib = 0;
};

Rest measureRest(Session& session, const ChildProcess& process) {
  pause(session, untilItRests);
  auto last = useOf(process.pid());
  Rest rest;
  for (auto rested = Milliseconds{0}; rested < restTime; rested += oneBurst) {
    pause(session, oneBurst);
    const auto now = useOf(process.pid());
    if (!last || !now) throw HarnessError("a program has ended");
    if (now->wakeUps != last->wakeUps) ++rest.wakeUps;
    rest.contextSwitches += now->wakeUps - last->wakeUps;
    last = now;
  }
  rest.kib = last->proportionalKiB;
  return rest;
}

void compareRest(Session& session, const Programs& programs) {
  const ChildProcess bare = session.start("bare", {programs.bare});
  const Rest ofBare = measureRest(session, bare);
  const ChildProcess tilwin = session.start("tilwin", {programs.tilwin});
  const Rest ofTilwin = measureRest(session, tilwin);
  std::printf(
      "At rest for a minute: woken %d times (%lld context switches) beside the bare program's %d (%lld); "
      "%lld KiB (PSS) beside %lld: %.2f x\n",
      ofTilwin.wakeUps, static_cast<long long>(ofTilwin.contextSwitches), ofBare.wakeUps,
      static_cast<long long>(ofBare.contextSwitches), ofTilwin.kib, ofBare.kib,
      static_cast<double>(ofTilwin.kib) / static_cast<double>(ofBare.kib));
}

void measureSettings(Session& session, const Programs& programs) {
  ChildProcess tilwin = session.start("settings", {programs.tilwin});
  pause(session, untilItRests);
  const auto settings = [&]() -> std::optional<WindowId> {
    const auto window = session.desktop().windowOfProcess(tilwin.pid());
    return window && session.desktop().viewable(*window) ? window : std::nullopt;
  };
  const auto before = useOf(tilwin.pid());
  std::vector<double> times;
  for (int round = 0; round < rounds; ++round) {
    const auto begun = Clock::now();
    ChildProcess second = session.start("second", {programs.tilwin});
    if (!session.desktop().waitUntil([&] { return settings().has_value(); }))
      throw HarnessError("no settings");
    times.push_back(Millis(Clock::now() - begun).count());
    session.desktop().close(*settings());
    session.desktop().waitUntil([&] { return !settings(); });
  }
  pause(session, untilItRests);
  const auto after = useOf(tilwin.pid());
  if (!before || !after) throw HarnessError("Tilwin has ended");
  std::printf(
      "Settings: shown %.0f ms after a second start began (first time %.0f ms); %lld KiB before, %lld KiB "
      "after it was opened and closed %d times\n",
      median(times), times.front(), static_cast<long long>(before->proportionalKiB),
      static_cast<long long>(after->proportionalKiB), rounds);
}

}  // namespace

int main(int argc, char** argv) {
  const EndOnSignal endOnSignal;
  if (argc != 3) {
    std::fputs("usage: bench-start TILWIN BARE-TRAY\n", stderr);
    return 2;
  }
  const Programs programs{std::filesystem::absolute(argv[1]), std::filesystem::absolute(argv[2])};
  try {
    Session session;
    const ChildProcess panel = session.start("tint2", {"tint2"});
    pause(session, untilItRests);
    compareStarts(session, programs);
    std::fflush(stdout);
    measureSettings(session, programs);
    std::fflush(stdout);
    compareRest(session, programs);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "The benchmark cannot go on: %s\n", error.what());
    return 1;
  }
}
