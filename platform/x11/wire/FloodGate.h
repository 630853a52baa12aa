#pragma once

#include <xcb/xcb.h>

#include <set>

#include "platform/ports/MainQueue.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Keeps the server from sending more events than this program can take. A client may change a property some
/// hundred thousand times a second; each change is an event, and those not yet read fill memory. If a window
/// is the source of more than `most` in `pause`, nothing is heard of its properties until that has ended.
/// Meanwhile, and once more after it, everything about them counts as changed every `pause`. So whoever reads
/// what events have made stale always ends with the last state.
class FloodGate {
public:
  static constexpr int most = 500;
  static constexpr MainQueue::Seconds pause{0.05};
  /// It is tried after `pause` whether a flood goes on, then after twice as long, and so on up to this.
  static constexpr MainQueue::Seconds longestDistance{0.4};

  /// The arguments must outlive this, and this must live as long as the queue runs.
  FloodGate(X11Connection& x, MainQueue& queue);
  FloodGate(const FloodGate&) = delete;
  FloodGate& operator=(const FloodGate&) = delete;
  ~FloodGate() = default;

private:
  void closeWhereFlooded();
  void readAgain();
  /// Listens to these windows for a moment. Returns whether the flood goes on.
  bool tryListening(const std::set<xcb_window_t>& windows);
  void waitForServer();

  X11Connection& x_;
  MainQueue& queue_;
  MainQueue::Seconds since_{};
  MainQueue::Seconds nextTrial_{};
  MainQueue::Seconds distance_ = pause;
  int limit_ = most;        ///< less while it is tried for a moment whether a flood goes on
  bool isFlooded_ = false;  ///< somebody has sent more than that
  DeferredWork reading_;
};

}  // namespace tilwin::x11
