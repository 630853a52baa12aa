#pragma once

#include <vector>

#include "tests/desktop/harness/Waiting.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// The events of the root window, its children, its client windows and its displays, as a signal to look
/// again. The connection must outlive it.
class EventWatch {
public:
  explicit EventWatch(XConnection& connection);

  /// Waits until the predicate holds, asking again after every burst of events (and a few times a second,
  /// for what sends no event: a file, a process). False when time ran out or the server is gone.
  bool waitUntil(const Predicate& predicate, Milliseconds timeout);
  /// Waits until no event has come for that long. False when they still come after the timeout.
  bool waitForQuiet(Milliseconds quiet, Milliseconds timeout);

private:
  /// Takes all events that are here; true when there was one.
  bool drain();
  void watchClients();
  bool waitForEvent(Clock::time_point until);

  XConnection& connection_;
  std::vector<WindowId> watched_;
};

}  // namespace tilwin::desktop
