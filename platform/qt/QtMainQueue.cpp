#include "platform/qt/QtMainQueue.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace tilwin::qt {

namespace {

/// A coarse timer of Qt may be late by this share of its interval, so it is used only if the tolerance is at
/// least that large.
constexpr double coarseShare = 0.05;

std::chrono::milliseconds rounded(MainQueue::Seconds time) {
  return std::chrono::ceil<std::chrono::milliseconds>(time);
}

/// The queue whose loop runs; for the handler of exit(3), which takes no argument.
QtMainQueue* running = nullptr;

class TimerRepetition : public MainQueue::Repetition {
public:
  TimerRepetition(MainQueue::Seconds interval, MainQueue::Seconds tolerance, MainQueue::Task task) {
    timer_.setTimerType(tolerance >= interval * coarseShare ? Qt::CoarseTimer : Qt::PreciseTimer);
    timer_.callOnTimeout(std::move(task));
    timer_.start(rounded(interval));
  }

private:
  QTimer timer_;
};

}  // namespace

void QtMainQueue::post(Task task) {
  QMetaObject::invokeMethod(&context_, std::move(task), Qt::QueuedConnection);
}

void QtMainQueue::postAfter(Seconds delay, Task task) {
  QTimer::singleShot(rounded(delay), Qt::PreciseTimer, &context_, std::move(task));
}

std::unique_ptr<MainQueue::Repetition> QtMainQueue::repeat(Seconds interval, Seconds tolerance, Task task) {
  return std::make_unique<TimerRepetition>(interval, tolerance, std::move(task));
}

MainQueue::WallTime QtMainQueue::now() const { return std::chrono::system_clock::now(); }

MainQueue::Seconds QtMainQueue::uptime() const { return std::chrono::steady_clock::now().time_since_epoch(); }

int QtMainQueue::run() {
  [[maybe_unused]] static const int registered = std::atexit(finishInsideLoop);
  QtMainQueue* const outer = std::exchange(running, this);
  const int exitStatus = QCoreApplication::exec();
  running = outer;
  finish();
  return exitStatus;
}

void QtMainQueue::finish() {
  for (const auto& task : std::exchange(aboutToStop_, {})) task();
}

void QtMainQueue::loseDisplay() {
  finish();
  if (displayLost_) displayLost_();
  // Not by unwinding: Qt would call exit(3) with status 1 as soon as it touches its connection.
  std::_Exit(running == nullptr ? 1 : 0);
}

void QtMainQueue::finishInsideLoop() {
  if (running != nullptr && running->displayLost_) running->loseDisplay();
}

void QtMainQueue::stop(int exitStatus) { QCoreApplication::exit(exitStatus); }

void QtMainQueue::watch(int fileDescriptor, const Task& task) {
  auto* notifier = new QSocketNotifier(fileDescriptor, QSocketNotifier::Read, &context_);
  QObject::connect(notifier, &QSocketNotifier::activated, &context_, task);
}

void QtMainQueue::beforeEachSleep(const std::function<bool()>& task) {
  auto* dispatcher = QAbstractEventDispatcher::instance();
  QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &context_, [dispatcher, task] {
    if (task()) dispatcher->wakeUp();
  });
}

}  // namespace tilwin::qt
