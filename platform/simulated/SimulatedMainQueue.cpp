#include "platform/simulated/SimulatedMainQueue.h"

#include <algorithm>
#include <utility>

#include "core/support/Fatal.h"

namespace tilwin {

struct SimulatedMainQueue::Repeating {
  Tick interval;
  Task task;
};

/// Owns the repetition; the waiting task holds it weakly.
class SimulatedMainQueue::KeptRepetition : public Repetition {
public:
  explicit KeptRepetition(std::shared_ptr<Repeating> repeating) : repeating_(std::move(repeating)) {}

private:
  std::shared_ptr<Repeating> repeating_;
};

bool SimulatedMainQueue::runDue() { return runUntil(uptime_); }

void SimulatedMainQueue::advance(Seconds by) {
  const Tick end = uptime_ + std::chrono::round<Tick>(by);
  runUntil(end);
  uptime_ = end;
}

void SimulatedMainQueue::setWallClock(WallTime now) {
  bootTime_ = now - std::chrono::duration_cast<WallTime::duration>(uptime_);
}

void SimulatedMainQueue::post(Task task) { at(uptime_, std::move(task)); }

void SimulatedMainQueue::postAfter(Seconds delay, Task task) {
  at(uptime_ + std::max(std::chrono::round<Tick>(delay), Tick::zero()), std::move(task));
}

/// Ignores the tolerance: each run is on time.
std::unique_ptr<MainQueue::Repetition> SimulatedMainQueue::repeat(Seconds interval, Seconds, Task task) {
  auto repeating = std::make_shared<Repeating>(
      Repeating{std::max(std::chrono::round<Tick>(interval), Tick(1)), std::move(task)});
  schedule(repeating, uptime_ + repeating->interval);
  return std::make_unique<KeptRepetition>(std::move(repeating));
}

void SimulatedMainQueue::schedule(const std::shared_ptr<Repeating>& repeating, Tick moment) {
  at(moment, [this, moment, weak = std::weak_ptr(repeating)] {
    const auto held = weak.lock();
    if (!held) return;
    schedule(held, moment + held->interval);
    held->task();
  });
}

SimulatedMainQueue::WallTime SimulatedMainQueue::now() const {
  return bootTime_ + std::chrono::duration_cast<WallTime::duration>(uptime_);
}

int SimulatedMainQueue::run() {
  exitStatus_.reset();
  while (!exitStatus_) {
    if (waiting_.empty()) fatal("The simulated main queue has nothing left to do and was not told to stop.");
    runNext();
  }
  finishStopping();
  return *exitStatus_;
}

void SimulatedMainQueue::runNext() {
  const auto next = waiting_.extract(waiting_.begin());
  uptime_ = std::max(uptime_, next.key());
  next.mapped()();
}

bool SimulatedMainQueue::runUntil(Tick moment) {
  bool ranAny = false;
  while (!exitStatus_ && !waiting_.empty() && waiting_.begin()->first <= moment) {
    runNext();
    ranAny = true;
  }
  if (exitStatus_) finishStopping();
  return ranAny;
}

void SimulatedMainQueue::finishStopping() {
  for (const Task& task : std::exchange(beforeStopping_, {})) task();
}

}  // namespace tilwin
