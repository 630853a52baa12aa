#pragma once

#include <functional>
#include <utility>

#include "platform/ports/MainQueue.h"

namespace tilwin::x11 {

/// Something read from the server that an event made stale. It is read again soon after, once for a whole
/// burst of events and off the path of a key press; whoever needs it sooner has it read at that moment.
///
/// Must live as long as its queue runs.
class DeferredWork {
public:
  DeferredWork(MainQueue& queue, MainQueue::Seconds delay, std::function<void()> work)
      : queue_(queue), delay_(delay), work_(std::move(work)) {}
  DeferredWork(const DeferredWork&) = delete;
  DeferredWork& operator=(const DeferredWork&) = delete;
  ~DeferredWork() = default;

  void need() {
    if (std::exchange(needed_, true)) return;
    queue_.postAfter(delay_, [this] { doNow(); });
  }

  /// Whether it waits to be done.
  [[nodiscard]] bool isNeeded() const { return needed_; }

  /// Does the work if it is still to be done.
  void doNow() {
    if (std::exchange(needed_, false)) work_();
  }

private:
  MainQueue& queue_;
  MainQueue::Seconds delay_;
  std::function<void()> work_;
  bool needed_ = false;
};

}  // namespace tilwin::x11
