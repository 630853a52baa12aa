#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

/// One property of one window, asked for when made and read when needed, so that many requests share a round
/// trip. A window that is gone, and a property that is missing or of another format, read as empty; so does
/// one that has been read before.
class PropertyRequest {
public:
  PropertyRequest(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property);

  /// The items of a 32-bit property: CARDINAL, ATOM or WINDOW.
  [[nodiscard]] std::vector<std::uint32_t> numbers();
  /// The first item, if any.
  [[nodiscard]] std::optional<std::uint32_t> number();
  /// The bytes of an 8-bit property, zero bytes included.
  [[nodiscard]] std::string text();

private:
  Pending<xcb_get_property_reply> reply_;
};

}  // namespace tilwin::x11
