#pragma once

#include <vector>

#include "tests/desktop/harness/Waiting.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// Waits for conditions, re-evaluating them on events of the root window, its children, the client windows
/// and the displays. The connection must outlive it.
class EventWatch {
public:
  explicit EventWatch(XConnection& connection);

  /// Waits until the predicate holds. Evaluates it after every burst of events, and a few times a second for
  /// changes without an event (a file, a process). Returns false on timeout or if the connection is lost.
  bool waitUntil(const Predicate& predicate, Milliseconds timeout);
  /// Waits until no event has arrived for that long. Returns false on timeout.
  bool waitForQuiet(Milliseconds quiet, Milliseconds timeout);

private:
  /// Reads all pending events; returns whether there was one.
  bool drain();
  void watchClients();
  bool waitForEvent(Clock::time_point until);

  XConnection& connection_;
  std::vector<WindowId> watched_;
};

}  // namespace tilwin::desktop
