#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/desktop/harness/Session.h"
#include "tests/desktop/harness/TestWindow.h"

namespace tilwin::bench {

/// One way to move the focused window to the left and the right half of the screen. A move begins at the
/// moment the function returns: that just before the key goes down, or the request is sent.
struct Mover {
  std::string name;
  std::function<desktop::Clock::time_point()> toLeft;
  std::function<desktop::Clock::time_point()> toRight;
};

/// Milliseconds from the beginning of each move to the last the client is told of its geometry.
struct Latencies {
  std::vector<double> milliseconds;

  [[nodiscard]] double percentile(double share) const;
};

/// Moves the window to and fro that many times, from a place of its own, and waits for quiet after each.
/// Throws HarnessError when a move has no effect.
void measure(const Mover& mover, desktop::Session& session, desktop::TestWindow& window, int moves,
             Latencies& into);

}  // namespace tilwin::bench
