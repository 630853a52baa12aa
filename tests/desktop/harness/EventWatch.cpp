#include "tests/desktop/harness/EventWatch.h"

#include <poll.h>
#include <xcb/randr.h>

#include <algorithm>

namespace tilwin::desktop {

namespace {

/// How long to rely on events alone before asking all the same.
constexpr Milliseconds recheck{200};

void select(XConnection& connection, WindowId window, std::uint32_t mask) {
  xcb_change_window_attributes(connection.get(), window, XCB_CW_EVENT_MASK, &mask);
}

}  // namespace

EventWatch::EventWatch(XConnection& connection) : connection_(connection) {
  select(connection_, connection_.root(),
         XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
             XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_FOCUS_CHANGE);
  xcb_randr_select_input(connection_.get(), connection_.root(),
                         XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                             XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
  connection_.flush();
}

void EventWatch::watchClients() {
  const auto clients = connection_.numbers(connection_.root(), "_NET_CLIENT_LIST");
  for (const WindowId window : clients) {
    if (std::find(watched_.begin(), watched_.end(), window) != watched_.end()) continue;
    select(connection_, window, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
  }
  watched_ = clients;
}

bool EventWatch::drain() {
  bool any = false;
  bool listChanged = false;
  const xcb_atom_t list = connection_.atom("_NET_CLIENT_LIST");
  while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
    if (event->response_type == 0) continue;
    any = true;
    if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY) continue;
    listChanged |= reinterpret_cast<const xcb_property_notify_event_t&>(*event).atom == list;
  }
  if (listChanged) watchClients();
  return any;
}

bool EventWatch::waitForEvent(Clock::time_point until) {
  const auto left = std::chrono::ceil<Milliseconds>(until - Clock::now());
  if (left.count() <= 0) return false;
  pollfd ready{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
  return poll(&ready, 1, static_cast<int>(left.count())) > 0;
}

bool EventWatch::waitUntil(const Predicate& predicate, Milliseconds timeout) {
  const auto until = Clock::now() + timeout;
  watchClients();
  while (true) {
    drain();
    if (predicate()) return true;
    if (!connection_.alive() || Clock::now() >= until) return false;
    // The predicate's own requests may have read events off the wire: those would not wake poll.
    if (drain()) continue;
    waitForEvent(std::min(until, Clock::now() + recheck));
  }
}

bool EventWatch::waitForQuiet(Milliseconds quiet, Milliseconds timeout) {
  const auto until = Clock::now() + timeout;
  watchClients();
  while (connection_.alive() && Clock::now() < until) {
    drain();
    if (!waitForEvent(Clock::now() + quiet)) return true;
  }
  return false;
}

}  // namespace tilwin::desktop
