#include "bench/desktop/Latency.h"

#include <algorithm>
#include <cmath>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::bench {

namespace {

/// Longer than any manager takes between the parts of one answer.
constexpr desktop::Milliseconds quiet{30};

/// Neither half: from here the first move of every mover is a move.
constexpr Rect apart{300, 200, 800, 600};

double timeOf(const std::function<desktop::Clock::time_point()>& move, desktop::TestWindow& window,
              const std::string& name) {
  window.forget();
  const auto begun = move();
  if (!window.waitUntil([&] { return !window.recorded().configures.empty(); })) {
    throw desktop::HarnessError(name + " moves nothing");
  }
  window.settle(quiet);
  const std::chrono::duration<double, std::milli> taken = window.recorded().configures.back().at - begun;
  return taken.count();
}

}  // namespace

double Latencies::percentile(double share) const {
  auto sorted = milliseconds;
  std::ranges::sort(sorted);
  const auto rank = std::ceil(share * static_cast<double>(sorted.size()));
  return sorted.at(static_cast<std::size_t>(std::max(rank, 1.0)) - 1);
}

void measure(const Mover& mover, desktop::Session& session, desktop::TestWindow& window, int moves,
             Latencies& into) {
  session.desktop().place(window.id(), apart);
  window.settle();
  timeOf(mover.toRight, window, mover.name);  // not counted: it alone changes the size
  for (int count = 0; count < moves; ++count) {
    into.milliseconds.push_back(timeOf(count % 2 == 0 ? mover.toLeft : mover.toRight, window, mover.name));
  }
}

}  // namespace tilwin::bench
