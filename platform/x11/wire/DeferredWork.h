#pragma once

#include <functional>
#include <utility>

#include "platform/ports/MainQueue.h"

namespace tilwin::x11 {

/// Work that waits for a short delay, so that it is done once for a whole burst of events. Used to read state
/// from the server again after an event made the cached state stale: a key press then seldom waits for it. A
/// caller that needs the result sooner calls `doNow`.
///
/// Must live as long as the queue runs.
class DeferredWork {
public:
  DeferredWork(MainQueue& queue, MainQueue::Seconds delay, std::function<void()> work)
      : queue_(queue), delay_(delay), work_(std::move(work)) {}
  DeferredWork(const DeferredWork&) = delete;
  DeferredWork& operator=(const DeferredWork&) = delete;
  ~DeferredWork() = default;

  /// Schedules the work, unless it is scheduled already.
  void need() {
    if (std::exchange(needed_, true)) return;
    queue_.postAfter(delay_, [this] { doNow(); });
  }

  /// Whether the work is scheduled and not yet done.
  [[nodiscard]] bool isNeeded() const { return needed_; }

  /// Does the work now if it is scheduled.
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
