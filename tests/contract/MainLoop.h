#pragma once

#include <functional>
#include <memory>

#include "platform/ports/MainQueue.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin {

/// A `QtMainQueue`, for headers that must compile without Qt.
std::unique_ptr<MainQueue> makeMainQueue();

/// Runs Qt's event loop, and with it everything that a `QtMainQueue` watches, for that long.
void runMainLoop(desktop::Milliseconds time);

/// Runs the loop until the condition holds; false if it does not within `patience`.
bool runMainLoopUntil(const std::function<bool()>& condition, desktop::Milliseconds patience);

}  // namespace tilwin
