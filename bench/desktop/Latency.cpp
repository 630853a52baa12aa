#include "bench/desktop/Latency.h"

#include <algorithm>
#include <cmath>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::bench {

namespace {

/// Longer than any manager takes between the parts of one answer.
constexpr desktop::Milliseconds quiet{30};

double timeOf(const Mover& mover, desktop::Session& session, desktop::TestWindow& window) {
  window.forget();
  const auto begun = mover.move();
  session.desktop().waitForFrame(window.id(), leftHalf);
  window.settle(quiet);
  const auto frame = session.desktop().frame(window.id()).value_or(Rect());
  if (frame != leftHalf) {
    throw desktop::HarnessError(mover.name + " puts the window at " + std::to_string(frame.x) + "," +
                                std::to_string(frame.y) + " in the size " + std::to_string(frame.width) +
                                " by " + std::to_string(frame.height));
  }
  return millisecondsToFinalSize(window, begun);
}

}  // namespace

double millisecondsToFinalSize(const desktop::TestWindow& window, desktop::Clock::time_point begun) {
  window.settle(quiet);
  const auto told = window.recorded().configures;
  const auto final = std::ranges::find(told, told.back().size, &desktop::Configure::size);
  const std::chrono::duration<double, std::milli> taken = final->at - begun;
  return taken.count();
}

double Latencies::percentile(double share) const {
  auto sorted = milliseconds;
  std::ranges::sort(sorted);
  const auto rank = std::ceil(share * static_cast<double>(sorted.size()));
  return sorted.at(static_cast<std::size_t>(std::max(rank, 1.0)) - 1);
}

void measure(const Mover& mover, desktop::Session& session, desktop::TestWindow& window, int moves,
             Latencies& into) {
  session.desktop().place(window.id(), apart);
  session.desktop().settle();
  for (int count = 0; count < moves; ++count) {
    into.milliseconds.push_back(timeOf(mover, session, window));
    mover.putBack();
    session.desktop().waitForFrame(window.id(), apart);
    window.settle(quiet);
  }
}

}  // namespace tilwin::bench
