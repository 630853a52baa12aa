#pragma once

#include <functional>

#include "platform/ports/MainQueue.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::macos {

/// Handles AppKit's events and timers until the condition holds; false if it does not within `patience`.
bool runEventLoopUntil(const std::function<bool()>& condition,
                       desktop::Milliseconds patience = desktop::Milliseconds{10'000});

/// The same until all tasks that the queue has been given by now have run, but not those with a delay, and no
/// event waits; false if they do not run.
bool finishTasks(MainQueue& queue);

}  // namespace tilwin::macos
