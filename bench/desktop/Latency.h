#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/desktop/harness/Session.h"
#include "tests/desktop/harness/TestWindow.h"

namespace tilwin::bench {

/// One way to move the focused window to the left half of the screen and back.
struct Mover {
  std::string name;
  /// Returns when the move began: just before the key press or the request was sent.
  std::function<desktop::Clock::time_point()> move;
  std::function<void()> putBack;
  /// Index of the mover that is the lower bound for this one.
  std::size_t floor = 0;
};

/// Where the window stands before each move: a move changes both its place and its size.
inline constexpr Rect apart{300, 200, 800, 600};
inline constexpr Rect leftHalf{0, 0, 960, 1080};

/// Milliseconds from the beginning of each move until the client receives its final size.
struct Latencies {
  std::vector<double> milliseconds;

  [[nodiscard]] double percentile(double share) const;
};

/// From then until the client received its final size; waits until no more events arrive.
[[nodiscard]] double millisecondsToFinalSize(const desktop::TestWindow& window,
                                             desktop::Clock::time_point begun);

/// Moves the window `moves` times and back again, each time waiting until no more events arrive. Throws
/// HarnessError if a move does not end on the left half.
void measure(const Mover& mover, desktop::Session& session, desktop::TestWindow& window, int moves,
             Latencies& into);

}  // namespace tilwin::bench
