#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace tilwin::x11 {

/// Window ids that are never used twice. The X server soon gives the number of a closed window to another
/// client, so with that number as id one window's remembered frame could be applied to another window.
class WindowIds {
public:
  /// The id of the window, the same for as long as it is open. If the window number now belongs to another
  /// process, it is a new window and gets a new id.
  [[nodiscard]] std::int64_t idOf(xcb_window_t window, std::uint32_t process);
  /// The window with this id; nothing if it has been forgotten or the id was never issued.
  [[nodiscard]] std::optional<xcb_window_t> windowOf(std::int64_t id) const;
  /// All windows that are not forgotten.
  [[nodiscard]] std::vector<xcb_window_t> windows() const;
  /// Forgets a window that was closed.
  void forget(xcb_window_t window);
  /// Forgets every window that is not in `open`.
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
