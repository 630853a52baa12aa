#include "tests/contract/MainLoop.h"

#include <QEventLoop>
#include <QTimer>

namespace tilwin {

void runMainLoop(desktop::Milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

bool runMainLoopUntil(const std::function<bool()>& condition, desktop::Milliseconds patience) {
  const auto until = desktop::Clock::now() + patience;
  while (!condition()) {
    if (desktop::Clock::now() >= until) return false;
    runMainLoop(desktop::Milliseconds{5});
  }
  return true;
}

}  // namespace tilwin
