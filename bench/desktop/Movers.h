#pragma once

#include <filesystem>
#include <vector>

#include "bench/desktop/Latency.h"

namespace tilwin::bench {

/// The movers compared on one desktop. The first is the lower bound for key presses: one
/// _NET_MOVERESIZE_WINDOW request sent by the benchmark itself. The session and the window must outlive the
/// movers.
[[nodiscard]] std::vector<Mover> moversFor(desktop::Session& session, const desktop::TestWindow& window);

/// Waits until the window manager's own tile keys work: kwin leaves them to another process, which drops
/// presses until it is ready and tells nobody. Throws HarnessError if that does not happen.
void waitForOwnKeys(desktop::Session& session, const desktop::TestWindow& window);

/// Starts sxhkd with a key binding that runs wmctrl.
[[nodiscard]] desktop::ChildProcess startSxhkd(desktop::Session& session, const desktop::TestWindow& window);

}  // namespace tilwin::bench
