#pragma once

#include <functional>

#include "tests/desktop/harness/Waiting.h"

namespace tilwin::macos {

/// Handles AppKit's events and timers for that long.
void runEventLoop(desktop::Milliseconds time);

/// The same until the condition holds; false if it does not within `patience`.
bool runEventLoopUntil(const std::function<bool()>& condition,
                       desktop::Milliseconds patience = desktop::Milliseconds{10'000});

}  // namespace tilwin::macos
