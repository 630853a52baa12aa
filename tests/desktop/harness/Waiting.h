#pragma once

#include <chrono>
#include <functional>

namespace tilwin::desktop {

/// The clock of all recorded times: monotonic, so that a press and the configure it causes can be subtracted.
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

/// How long a program may take to show its first window, or a server or manager to be ready, on a busy
/// machine.
inline constexpr Milliseconds startTimeout{20000};

/// How long a desktop may take to do what it was asked.
inline constexpr Milliseconds answerTimeout{5000};

using Predicate = std::function<bool()>;

}  // namespace tilwin::desktop
