#include "platform/x11/wire/X11Connection.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "platform/x11/wire/OfferedByServer.h"
#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

constexpr std::uint8_t eventTypeMask = 0x7f;  // the top bit marks events sent by a client

/// The errors of requests on a window that no longer exists.
constexpr std::array<std::uint8_t, 3> ordinaryErrors{XCB_WINDOW, XCB_MATCH, XCB_DRAWABLE};

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
  auto offered = offeredBy(*this);
  // Whoever uses windows waits for one that works; it may be starting just now.
  offered.windowManager = false;
  if (const auto complaint = missing(offered)) throw X11Unavailable(*complaint);
  constexpr std::uint32_t onRoot = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(get(), root_, XCB_CW_EVENT_MASK, &onRoot);
}

X11Connection::X11Connection(SystemLog& log, Opened opened)
    : log_(log),
      connection_(std::move(opened.connection)),
      root_(rootOf(get(), opened.screenNumber)),
      atoms_(get()) {}

X11Connection::Opened X11Connection::open() {
  Opened result;
  result.connection.reset(xcb_connect(nullptr, &result.screenNumber));
  if (xcb_connection_has_error(result.connection.get()) != 0) complainOfNoServer();
  return result;
}

std::uint8_t X11Connection::firstEvent(xcb_extension_t& extension) const {
  return xcb_get_extension_data(get(), &extension)->first_event;
}

void X11Connection::onEvent(std::uint8_t responseType, EventHandler handler) {
  handlers_.emplace_back(responseType, std::move(handler));
}

void X11Connection::dispatch() {
  take(xcb_poll_for_event(get()));
  dispatchQueued();
}

void X11Connection::dispatchQueued() {
  while (auto* event = xcb_poll_for_queued_event(get())) take(event);
  if (xcb_connection_has_error(get()) != 0 && lost_) std::exchange(lost_, nullptr)();
}

void X11Connection::take(xcb_generic_event_t* taken) {
  const Reply<xcb_generic_event_t> event(taken);
  if (!event) return;
  ++generation_;
  if (event->response_type == 0) {
    noteError(reinterpret_cast<const xcb_generic_error_t&>(*event));
  } else {
    deliver(*event);
  }
}

void X11Connection::deliver(const xcb_generic_event_t& event) {
  const std::uint8_t type = event.response_type & eventTypeMask;
  for (const auto& [wanted, handler] : handlers_) {
    if (wanted == type) handler(event);
  }
}

void X11Connection::noteError(const xcb_generic_error_t& error) {
  if (std::ranges::find(ordinaryErrors, error.error_code) != ordinaryErrors.end()) return;
  if (!loggedErrors_.emplace(error.error_code, error.major_code).second) return;
  log_.write("Tilwin: X error " + std::to_string(error.error_code) + " of request " +
             std::to_string(error.major_code) + "." + std::to_string(error.minor_code));
}

}  // namespace tilwin::x11
