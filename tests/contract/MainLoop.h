#pragma once

#include <functional>

#include "tests/desktop/harness/Waiting.h"

namespace tilwin {

/// Runs Qt's event loop, and with it everything that a `QtMainQueue` watches, for that long.
void runMainLoop(desktop::Milliseconds time);

/// Runs the loop until the condition holds; false if it does not within `patience`.
bool runMainLoopUntil(const std::function<bool()>& condition, desktop::Milliseconds patience);

}  // namespace tilwin
