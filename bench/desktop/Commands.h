#pragma once

#include <filesystem>
#include <vector>

#include "bench/desktop/Latency.h"

namespace tilwin::bench {

/// The largest share of the time that wmctrl takes which `tilwin snap` may take.
inline constexpr double commandGoal = 0.5;

/// Two programs that move the focused window and end, as a script or a key binding starts them: wmctrl, then
/// `tilwin snap leftHalf`. A move begins with starting the process. The session must outlive the movers.
[[nodiscard]] std::vector<Mover> commandMoversFor(desktop::Session& session,
                                                  const desktop::TestWindow& window,
                                                  const std::filesystem::path& tilwin, const Mover& request);

/// What the window manager takes besides the frame of a client area, as wmctrl wants it.
[[nodiscard]] std::vector<std::string> wmctrlArguments(const Rect& frame, const desktop::Extents& extents);

}  // namespace tilwin::bench
