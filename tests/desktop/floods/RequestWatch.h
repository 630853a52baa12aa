#pragma once

#include <functional>
#include <optional>
#include <string>

#include "tests/desktop/harness/Waiting.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// Sees the requests to move windows that a window manager is sent, over a connection that hears nothing of
/// most floods.
class RequestWatch {
public:
  explicit RequestWatch(const std::string& display);

  /// Waits for the next request to move the window such that its left edge fits. Returns when it came;
  /// nothing if none does in time.
  std::optional<Clock::time_point> wait(WindowId window, const std::function<bool(int left)>& fits,
                                        Milliseconds timeout);
  /// Forgets the requests so far.
  void forget();

private:
  XConnection connection_;
  xcb_atom_t request_;
};

}  // namespace tilwin::desktop
