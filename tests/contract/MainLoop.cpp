#include "tests/contract/MainLoop.h"

#include <QEventLoop>
#include <QTimer>

#include "platform/qt/QtMainQueue.h"

namespace tilwin {

std::unique_ptr<MainQueue> makeMainQueue() { return std::make_unique<qt::QtMainQueue>(); }

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
