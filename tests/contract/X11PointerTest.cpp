#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTimer>
#include <optional>
#include <thread>

#include "platform/qt/QtMainQueue.h"
#include "platform/x11/input/X11Pointer.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using desktop::Clock;
using desktop::Milliseconds;

/// A hand that drags over a real desktop, and a program that is told of it.
class X11PointerPace : public testing::Test {
protected:
  X11PointerPace() {
    setenv("DISPLAY", session_.server().display().c_str(), 1);
    x_.emplace(log_);
    held_.emplace(*x_);
    pointer_.emplace(*x_, *held_, queue_);
    queue_.watch(x_->fileDescriptor(), [this] { x_->dispatch(); });
    queue_.beforeEachSleep([this] { x_->dispatchQueued(); });
  }

  std::unique_ptr<PointerMonitor::Token> onMoves(const std::function<void()>& handler) {
    auto token = pointer_->addGlobal(PointerEvent::leftMouseDragged, [handler](PointerEvent) { handler(); });
    (void)pointer_->position();
    return token;
  }

  /// Lets the program work for that long.
  static void wait(Milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
  }

  desktop::Session session_;
  FailingLog log_;
  qt::QtMainQueue queue_;
  std::optional<X11Connection> x_;
  std::optional<HeldWindow> held_;
  std::optional<X11Pointer> pointer_;
};

constexpr Milliseconds pause{30};

}  // namespace

TEST_F(X11PointerPace, TellsNoMoveSoonerThanAPauseAfterTheLastWasDealtWith) {
  int told = 0;
  std::optional<Clock::time_point> noted;
  const auto token = onMoves([&] {
    if (noted) {
      EXPECT_GT(Clock::now() - *noted, pause) << "after move " << told;
    }
    std::this_thread::sleep_for(pause * 2 / 3);
    noted = Clock::now();
    ++told;
  });
  auto& hand = session_.input();
  hand.buttonDown();
  for (int x = 100; x < 200; ++x) {
    hand.movePointer({x, 100});
    wait(Milliseconds{4});
  }
  hand.buttonUp();
  EXPECT_GT(told, 3);
}

}  // namespace tilwin::x11
