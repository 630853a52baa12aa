#include "tests/desktop/harness/XConnection.h"

#include <algorithm>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// In 32-bit units; far above any property of a desktop.
constexpr std::uint32_t longestProperty = 1U << 20;

}  // namespace

XConnection::XConnection(const std::string& display) {
  int number = 0;
  connection_.reset(xcb_connect(display.c_str(), &number));
  if (xcb_connection_has_error(connection_.get()) != 0) throw HarnessError("no X server at " + display);
  screen_ = xcb_setup_roots_iterator(xcb_get_setup(get())).data;
}

xcb_atom_t XConnection::atom(const std::string& name) {
  const auto known = atoms_.find(name);
  if (known != atoms_.end()) return known->second;
  const auto cookie = xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const XcbPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(get(), cookie, nullptr));
  if (!reply) throw HarnessError("the X connection is lost");
  return atoms_[name] = reply->atom;
}

std::string XConnection::atomName(xcb_atom_t atom) {
  const XcbPtr<xcb_get_atom_name_reply_t> reply(
      xcb_get_atom_name_reply(get(), xcb_get_atom_name(get(), atom), nullptr));
  if (!reply) return {};
  return {xcb_get_atom_name_name(reply.get()),
          static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
}

XcbPtr<xcb_get_property_reply_t> XConnection::property(WindowId window, const std::string& name) {
  const auto cookie =
      xcb_get_property(get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
  XcbPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(get(), cookie, nullptr));
  if (reply && reply->type == XCB_NONE) reply.reset();
  return reply;
}

std::vector<std::uint32_t> XConnection::numbers(WindowId window, const std::string& name) {
  const auto reply = property(window, name);
  if (!reply || reply->format != 32) return {};
  const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

std::optional<std::string> XConnection::text(WindowId window, const std::string& name) {
  const auto reply = property(window, name);
  if (!reply || reply->format != 8) return std::nullopt;
  const auto* first = static_cast<const char*>(xcb_get_property_value(reply.get()));
  return std::string(first, reply->value_len);
}

void XConnection::sendToRoot(WindowId window, const std::string& message,
                             const std::array<std::uint32_t, 5>& data) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = atom(message);
  std::copy(data.begin(), data.end(), event.data.data32);
  xcb_send_event(get(), 0, root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
  flush();
}

void XConnection::flush() { xcb_flush(get()); }

void XConnection::sync() {
  const XcbPtr<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
}

bool XConnection::alive() const { return xcb_connection_has_error(get()) == 0; }

}  // namespace tilwin::desktop
