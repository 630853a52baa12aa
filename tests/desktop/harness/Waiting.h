#pragma once

#include <chrono>
#include <functional>

namespace tilwin::desktop {

/// The clock of all recorded times. Monotonic, so that differences between events are meaningful.
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

/// The timeout for a program's first window, or for a server or window manager to be ready, on a busy
/// machine.
inline constexpr Milliseconds startTimeout{20000};

/// The timeout for a desktop to carry out a request.
inline constexpr Milliseconds answerTimeout{5000};

using Predicate = std::function<bool()>;

}  // namespace tilwin::desktop
