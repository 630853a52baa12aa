#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/desktop/harness/Session.h"
#include "tests/desktop/harness/TestWindow.h"

namespace tilwin::bench {

/// One way to put the focused window on the left half of the screen and to put it back.
struct Mover {
  std::string name;
  /// Returns the moment the move began: that just before the key went down, or the request was sent.
  std::function<desktop::Clock::time_point()> move;
  std::function<void()> putBack;
  /// Which of the movers measured with it does the least that can be done in its place.
  std::size_t floor = 0;
};

/// Where the window stands before each move: a move changes both its place and its size.
inline constexpr Rect apart{300, 200, 800, 600};
inline constexpr Rect leftHalf{0, 0, 960, 1080};

/// Milliseconds from the beginning of each move until the client is told of its final size.
struct Latencies {
  std::vector<double> milliseconds;

  [[nodiscard]] double percentile(double share) const;
};

/// Moves the window that many times and puts it back each time, waiting for quiet. Throws HarnessError when a
/// move does not end on the left half.
void measure(const Mover& mover, desktop::Session& session, desktop::TestWindow& window, int moves,
             Latencies& into);

}  // namespace tilwin::bench
