#include "platform/x11/wire/X11Connection.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/x11/wire/OfferedByServer.h"
#include "platform/x11/wire/Property.h"
#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

constexpr std::uint8_t sentByClient = 0x80;
constexpr std::uint8_t eventTypeMask = 0x7f;

/// Whether this kind of event has a use between clients: messages, and what a window manager tells of where a
/// window stands. Source: ICCCM, 4.1.5.
constexpr bool isOfUse(std::uint8_t responseType) {
  return responseType == (sentByClient | XCB_CLIENT_MESSAGE) ||
         responseType == (sentByClient | XCB_CONFIGURE_NOTIFY);
}

/// The errors of requests on a window that no longer exists.
constexpr std::array<std::uint8_t, 3> ordinaryErrors{XCB_WINDOW, XCB_MATCH, XCB_DRAWABLE};

/// xcb hands out every event in a buffer of this length.
template <typename Event>
xcb_generic_event_t asReceived(const Event& event) {
  static_assert(sizeof event <= sizeof(xcb_generic_event_t));
  xcb_generic_event_t received{};
  std::memcpy(&received, &event, sizeof event);
  return received;
}

[[noreturn]] void complainOfNoServer() {
  const char* display = std::getenv("DISPLAY");
  if (display == nullptr || *display == '\0') {
    throw X11Unavailable("no X server: DISPLAY is not set; start Tilwin inside an X11 session.");
  }
  throw X11Unavailable("no X server answers at DISPLAY=" + std::string(display) +
                       "; start Tilwin inside a running X11 session.");
}

xcb_window_t rootOf(xcb_connection_t* connection, int screenNumber) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; screenNumber > 0 && screens.rem > 1; --screenNumber) xcb_screen_next(&screens);
  return screens.data->root;
}

}  // namespace

X11Connection::X11Connection(SystemLog& log) : X11Connection(log, open()) {
  const auto offered = offeredBy(*this);
  if (isLost()) throw X11Unavailable("the X server has gone");
  if (const auto complaint = missing(offered)) throw X11Unavailable(*complaint);
  masks_.select(this, root_, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == root_ && change.atom == atom(Atom::netSupported)) supported_.reset();
  });
  flush();
}

X11Connection::X11Connection(SystemLog& log, Opened opened)
    : log_(log),
      connection_(std::move(opened.connection)),
      root_(rootOf(get(), opened.screenNumber)),
      atoms_(get()),
      masks_(get(), root_) {}

X11Connection::Opened X11Connection::open() {
  Opened result;
  result.connection.reset(xcb_connect(nullptr, &result.screenNumber));
  if (xcb_connection_has_error(result.connection.get()) != 0) complainOfNoServer();
  return result;
}

std::uint8_t X11Connection::firstEvent(xcb_extension_t& extension) const {
  const auto* data = xcb_get_extension_data(get(), &extension);
  return data == nullptr ? 0 : data->first_event;
}

std::uint8_t X11Connection::majorOpcode(xcb_extension_t& extension) const {
  const auto* data = xcb_get_extension_data(get(), &extension);
  return data == nullptr ? 0 : data->major_opcode;
}

bool X11Connection::managerSupports(Atom feature) const {
  if (!supported_) supported_ = PropertyRequest(get(), root_, atom(Atom::netSupported)).numbers();
  return std::ranges::find(*supported_, atom(feature)) != supported_->end();
}

void X11Connection::onEvent(std::uint8_t responseType, EventHandler handler) {
  handlers_.emplace_back(responseType, std::move(handler));
}

bool X11Connection::created(xcb_window_t window) const {
  const auto* setup = xcb_get_setup(get());
  return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

void X11Connection::dispatch() {
  if (!ahead_) ahead_.reset(xcb_poll_for_event(get()));
  dispatchQueued();
}

bool X11Connection::dispatchQueued() {
  bool any = false;
  while (const auto event = next()) {
    take(*event);
    any = true;
  }
  if (any) {
    for (const auto& handler : afterEvents_) handler();
  }
  if (xcb_connection_has_error(get()) != 0 && lost_) std::exchange(lost_, nullptr)();
  ahead_ = next();
  return ahead_ != nullptr;
}

/// The server's end of the connection is closed before what it sent last has been read.
bool X11Connection::isLost() const {
  pollfd server{.fd = fileDescriptor(), .events = POLLRDHUP, .revents = 0};
  return xcb_connection_has_error(get()) != 0 || poll(&server, 1, 0) > 0;
}

void X11Connection::tellIfLost() {
  if (lost_ && isLost()) std::exchange(lost_, nullptr)();
}

Reply<xcb_generic_event_t> X11Connection::next() {
  return ahead_ ? std::move(ahead_) : Reply<xcb_generic_event_t>(xcb_poll_for_queued_event(get()));
}

void X11Connection::count(const xcb_generic_event_t& event) {
  if ((event.response_type & sentByClient) != 0) {
    ++eventCounts_[root_];
  } else if (event.response_type == XCB_PROPERTY_NOTIFY) {
    ++eventCounts_[reinterpret_cast<const xcb_property_notify_event_t&>(event).window];
  }
}

void X11Connection::pretendChanged(xcb_window_t window) {
  ++generation_;
  for (std::size_t index = 0; index < atomNames.size(); ++index) {
    xcb_property_notify_event_t event{};
    event.response_type = XCB_PROPERTY_NOTIFY;
    event.window = window;
    event.atom = atom(static_cast<Atom>(index));
    deliver(asReceived(event));
  }
  if (window == root_) {
    xcb_configure_notify_event_t event{};
    event.response_type = XCB_CONFIGURE_NOTIFY;
    event.event = event.window = window;
    deliver(asReceived(event));
  }
  for (const auto& handler : afterEvents_) handler();
}

/// A window whose events could not be selected was destroyed just before, so no event will tell of that.
void X11Connection::pretendDestroyed(xcb_window_t window) {
  xcb_destroy_notify_event_t event{};
  event.response_type = XCB_DESTROY_NOTIFY;
  event.event = event.window = window;
  deliver(asReceived(event));
}

void X11Connection::take(const xcb_generic_event_t& event) {
  count(event);
  if ((event.response_type & sentByClient) != 0 && !isOfUse(event.response_type)) return;
  ++generation_;
  if (event.response_type == 0) {
    noteError(reinterpret_cast<const xcb_generic_error_t&>(event));
  } else {
    deliver(event);
  }
}

void X11Connection::deliver(const xcb_generic_event_t& event) {
  const std::uint8_t type = event.response_type & eventTypeMask;
  if (type == XCB_DESTROY_NOTIFY) {
    masks_.forget(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
  }
  for (const auto& [wanted, handler] : handlers_) {
    if (wanted == type) handler(event);
  }
}

void X11Connection::noteError(const xcb_generic_error_t& error) {
  if (error.error_code == XCB_WINDOW && error.major_code == XCB_CHANGE_WINDOW_ATTRIBUTES) {
    pretendDestroyed(error.resource_id);
  }
  if (std::ranges::find(ordinaryErrors, error.error_code) != ordinaryErrors.end()) return;
  if (!loggedErrors_.emplace(error.error_code, error.major_code).second) return;
  log_.write("Tilwin: X error " + std::to_string(error.error_code) + " of request " +
             std::to_string(error.major_code) + "." + std::to_string(error.minor_code));
}

}  // namespace tilwin::x11
