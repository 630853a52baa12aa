#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

/// A request for one property of one window. The constructor sends it and the first read waits for the reply,
/// so that many requests can share one round trip. The result is empty if the window is gone, if the property
/// is missing or has another format, and on a second read.
class PropertyRequest {
public:
  /// In 32-bit units. What is beyond is not read: other programs decide how long their properties are.
  static constexpr std::uint32_t longestList = 4096;
  static constexpr std::uint32_t longestText = 1024;

  PropertyRequest(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
                  std::uint32_t longest = longestList);

  /// The items of a 32-bit property: CARDINAL, ATOM or WINDOW.
  [[nodiscard]] std::vector<std::uint32_t> numbers();
  /// The first item, if any.
  [[nodiscard]] std::optional<std::uint32_t> number();
  /// The bytes of an 8-bit property, zero bytes included. Text that is cut off may end within a character.
  [[nodiscard]] std::string text();

private:
  Pending<xcb_get_property_reply> reply_;
};

}  // namespace tilwin::x11
