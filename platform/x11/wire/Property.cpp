#include "platform/x11/wire/Property.h"

#include <cstddef>

namespace tilwin::x11 {

namespace {

template <typename Item>
std::vector<Item> itemsOf(const Reply<xcb_get_property_reply_t>& reply) {
  if (!reply || reply->format != 8 * sizeof(Item)) return {};
  const auto* first = static_cast<const Item*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

}  // namespace

PropertyRequest::PropertyRequest(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
                                 std::uint32_t longest)
    : reply_(connection,
             xcb_get_property(connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, longest)) {}

std::vector<std::uint32_t> PropertyRequest::numbers() { return itemsOf<std::uint32_t>(reply_.collect()); }

std::optional<std::uint32_t> PropertyRequest::number() {
  const auto all = numbers();
  return all.empty() ? std::nullopt : std::optional(all.front());
}

std::string PropertyRequest::text() {
  const auto bytes = itemsOf<char>(reply_.collect());
  return {bytes.begin(), bytes.end()};
}

}  // namespace tilwin::x11
