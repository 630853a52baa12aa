#pragma once

#include <QEventLoop>
#include <QTimer>
#include <functional>

#include "tests/desktop/harness/Waiting.h"

namespace tilwin {

/// Runs Qt's event loop, and with it everything that a `QtMainQueue` watches, for that long.
inline void runMainLoop(desktop::Milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

/// Runs the loop until the condition holds; false if it does not within `patience`.
inline bool runMainLoopUntil(const std::function<bool()>& condition, desktop::Milliseconds patience) {
  const auto until = desktop::Clock::now() + patience;
  while (!condition()) {
    if (desktop::Clock::now() >= until) return false;
    runMainLoop(desktop::Milliseconds{5});
  }
  return true;
}

}  // namespace tilwin
