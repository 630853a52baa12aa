#pragma once

#include "bench/desktop/Latency.h"

namespace tilwin::bench {

/// Drags the window by its title bar to the left edge of the screen, waits for the preview and releases the
/// button. The move begins with the release. The session and the window must outlive the mover.
[[nodiscard]] Mover dragToTheLeft(desktop::Session& session, const desktop::TestWindow& window);

/// The lower bound for a drag: the window is released where Tilwin does nothing, and a single request for the
/// left half is sent at once. `request` is that request as a mover.
[[nodiscard]] Mover letGoAndRequest(desktop::Session& session, const desktop::TestWindow& window,
                                    const Mover& request);

/// The processor time that dragging a window takes, away from all edges.
struct DragCost {
  double tilwin = 0;   ///< share of one processor that Tilwin took
  double manager = 0;  ///< share that the window manager took
};

/// The largest share of a processor that Tilwin may take while a window is dragged.
inline constexpr double dragCostGoal = 0.006;

/// Drags for `time`, with 125 moves a second like an ordinary mouse. Throws HarnessError if Tilwin or the
/// window manager has ended.
[[nodiscard]] DragCost costOfDragging(desktop::Session& session, const desktop::TestWindow& window,
                                      pid_t tilwin, desktop::Milliseconds time);

/// Windows released in motion, and how many of them snapped.
struct Throws {
  int thrown = 0;
  Latencies settled;  ///< of those that snapped, from the release until the client receives its final size
};

/// Drags the window to the left edge of the screen with 125 moves a second, and releases the button that long
/// after the last of them; so `count` times. Throws HarnessError if the window cannot be put back.
[[nodiscard]] Throws throwToTheLeft(desktop::Session& session, desktop::TestWindow& window,
                                    desktop::Milliseconds afterLastMove, int count);

/// Milliseconds from the pointer entering a zone until the preview is mapped, measured `count` times. Throws
/// HarnessError if the preview never appears.
[[nodiscard]] Latencies timesToPreview(desktop::Session& session, const desktop::TestWindow& window,
                                       int count);

}  // namespace tilwin::bench
