#pragma once

#include <filesystem>
#include <vector>

#include "bench/desktop/Latency.h"

namespace tilwin::bench {

/// What is compared on one desktop. The first mover is the floor of presses: one _NET_MOVERESIZE_WINDOW sent
/// by the benchmark itself, without any key. Session and window must outlive the movers.
[[nodiscard]] std::vector<Mover> moversFor(desktop::Session& session, const desktop::TestWindow& window);

/// Has sxhkd run wmctrl on a key of its own.
[[nodiscard]] desktop::ChildProcess startSxhkd(desktop::Session& session, const desktop::TestWindow& window);

}  // namespace tilwin::bench
