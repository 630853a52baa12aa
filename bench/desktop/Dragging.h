#pragma once

#include "bench/desktop/Latency.h"

namespace tilwin::bench {

/// A person who drags the window by its title bar to the left edge of the screen, waits for the preview and
/// lets go: the move begins with letting go. Session and window must outlive it.
[[nodiscard]] Mover dragToTheLeft(desktop::Session& session, const desktop::TestWindow& window);

/// The least that a drag can end with: the window is let go where Tilwin does nothing, and at once one
/// request is sent for the left half. `request` is that request as a mover.
[[nodiscard]] Mover letGoAndRequest(desktop::Session& session, const desktop::TestWindow& window,
                                    const Mover& request);

/// What a window costs while it is dragged about, away from all edges.
struct DragCost {
  double tilwin = 0;   ///< share of one processor that Tilwin took
  double manager = 0;  ///< and the window manager
};

/// Drags for that long with 125 moves a second, as a usual mouse sends them. Throws HarnessError when one of
/// the two has ended.
[[nodiscard]] DragCost costOfDragging(desktop::Session& session, const desktop::TestWindow& window,
                                      pid_t tilwin, desktop::Milliseconds time);

/// Milliseconds from the pointer's entering a zone until the preview is mapped, so many times. Throws
/// HarnessError when it does not come.
[[nodiscard]] Latencies timesToPreview(desktop::Session& session, const desktop::TestWindow& window,
                                       int count);

}  // namespace tilwin::bench
