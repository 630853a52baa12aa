#pragma once

#include "bench/desktop/Latency.h"

namespace tilwin::bench {

inline constexpr Rect rightHalf{960, 0, 960, 1080};

/// One way to move the focused window between the halves of the screen, which changes its position only.
struct HalvesMover {
  std::string name;
  /// Each returns when the move began.
  std::function<desktop::Clock::time_point()> toRight;
  std::function<desktop::Clock::time_point()> toLeft;
  /// Bring the window from `apart` to the left half, and back from there.
  std::function<void()> begin;
  std::function<void()> end;
};

/// The ways compared on one desktop; the first is the lower bound. The session and the window must outlive
/// them.
[[nodiscard]] std::vector<HalvesMover> halvesMoversFor(desktop::Session& session,
                                                       const desktop::TestWindow& window);

/// Moves the window `moves` times in turn to the right half and to the left half. Measured is the time until
/// the client is told of its final position; after that it waits until no more events arrive. Throws
/// HarnessError if a move does not end on the other half.
void measure(const HalvesMover& mover, desktop::Session& session, desktop::TestWindow& window, int moves,
             Latencies& into);

}  // namespace tilwin::bench
