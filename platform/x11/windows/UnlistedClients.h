#pragma once

#include <xcb/xcb.h>

#include <set>
#include <span>
#include <vector>

#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Windows that the window manager lists no longer, although they are open: it has ended, another one takes
/// its place, or a window is hidden. What is known of them is worth keeping, but the server may give the
/// number of one that closes to another. So their end is listened to.
class UnlistedClients {
public:
  /// The connection must outlive this.
  explicit UnlistedClients(X11Connection& x) : x_(x) {}
  UnlistedClients(const UnlistedClients&) = delete;
  UnlistedClients& operator=(const UnlistedClients&) = delete;
  ~UnlistedClients() = default;

  /// Sets which windows are not listed now, and returns those that are open; of these, a DestroyNotify event
  /// comes at their end. At most `mostWindows`; of more, none of the others. One round trip if there are any.
  [[nodiscard]] std::vector<xcb_window_t> openOf(std::span<const xcb_window_t> unlisted);
  /// Whether the window was open and not listed when that was last asked.
  [[nodiscard]] bool contains(xcb_window_t window) const { return watched_.contains(window); }
  /// The window was closed.
  void forget(xcb_window_t window) { watched_.erase(window); }

private:
  X11Connection& x_;
  std::set<xcb_window_t> watched_;
};

}  // namespace tilwin::x11
