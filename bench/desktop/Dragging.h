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

/// Drags for `time`, with 125 moves a second like an ordinary mouse. Throws HarnessError if Tilwin or the
/// window manager has ended.
[[nodiscard]] DragCost costOfDragging(desktop::Session& session, const desktop::TestWindow& window,
                                      pid_t tilwin, desktop::Milliseconds time);

/// Milliseconds from the pointer entering a zone until the preview is mapped, measured `count` times. Throws
/// HarnessError if the preview never appears.
[[nodiscard]] Latencies timesToPreview(desktop::Session& session, const desktop::TestWindow& window,
                                       int count);

}  // namespace tilwin::bench
