#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <map>
#include <optional>
#include <span>

namespace tilwin::x11 {

/// Handles for windows that are never used twice. The server gives the number of a closed window to the next
/// client readily, so that number alone would pass one window's remembered frame on to a stranger.
class WindowIds {
public:
  /// The handle of the window, the same each time while it stays open. A window number that turns up with
  /// another process has been given to a new window.
  [[nodiscard]] std::int64_t idOf(xcb_window_t window, std::uint32_t process);
  [[nodiscard]] std::optional<xcb_window_t> windowOf(std::int64_t id) const;
  /// The window has been closed.
  void forget(xcb_window_t window);
  /// Lets go of every window that is not open any more.
  void keepOnly(std::span<const xcb_window_t> open);

private:
  struct Issued {
    std::int64_t id = 0;
    std::uint32_t process = 0;
  };

  std::map<xcb_window_t, Issued> issued_;
  std::map<std::int64_t, xcb_window_t> windows_;
  std::int64_t next_ = 1;
};

}  // namespace tilwin::x11
