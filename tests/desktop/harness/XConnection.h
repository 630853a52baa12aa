#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/desktop/harness/Pixels.h"

namespace tilwin::desktop {

struct FreeXcb {
  void operator()(void* memory) const { std::free(memory); }
};

/// Owns a reply or event of xcb; null if the request failed.
template <typename T>
using XcbPtr = std::unique_ptr<T, FreeXcb>;

/// A connection to an X server, with the requests that all parts of the harness need. Requests about windows
/// that do not exist return nothing. Throws HarnessError if the server cannot be reached.
class XConnection {
public:
  explicit XConnection(const std::string& display);

  xcb_connection_t* get() const { return connection_.get(); }
  xcb_window_t root() const { return screen_->root; }
  const xcb_screen_t& screen() const { return *screen_; }

  xcb_atom_t atom(const std::string& name);
  std::string atomName(xcb_atom_t atom);

  /// The 32-bit items of a property, of whatever type; empty when it is missing.
  std::vector<std::uint32_t> numbers(WindowId window, const std::string& name);
  /// The bytes of a property; nothing when it is missing.
  std::optional<std::string> text(WindowId window, const std::string& name);

  /// Sends an EWMH client message about a window to the root window (32-bit data).
  void sendToRoot(WindowId window, const std::string& message, const std::array<std::uint32_t, 5>& data);

  void flush();
  /// A round trip: the server has processed every earlier request when it returns.
  void sync();
  /// Whether the connection is still open.
  bool alive() const;

private:
  struct Close {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };
  XcbPtr<xcb_get_property_reply_t> property(WindowId window, const std::string& name);

  std::unique_ptr<xcb_connection_t, Close> connection_;
  xcb_screen_t* screen_ = nullptr;
  std::map<std::string, xcb_atom_t> atoms_;
};

}  // namespace tilwin::desktop
