#include "tests/desktop/floods/RequestWatch.h"

#include <poll.h>

namespace tilwin::desktop {

RequestWatch::RequestWatch(const std::string& display)
    : connection_(display), request_(connection_.atom("_NET_MOVERESIZE_WINDOW")) {
  const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_.get(), connection_.root(), XCB_CW_EVENT_MASK, &mask);
  connection_.sync();
}

std::optional<Clock::time_point> RequestWatch::wait(WindowId window,
                                                    const std::function<bool(int left)>& fits,
                                                    Milliseconds timeout) {
  const auto until = Clock::now() + timeout;
  while (true) {
    while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
      const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
      const bool isRequest = (event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && message.type == request_;
      if (!isRequest || message.window != window) continue;
      if (fits(static_cast<int>(message.data.data32[1]))) return Clock::now();
    }
    const auto left = std::chrono::ceil<Milliseconds>(until - Clock::now());
    pollfd ready{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
    if (left.count() <= 0 || poll(&ready, 1, static_cast<int>(left.count())) <= 0) return std::nullopt;
  }
}

void RequestWatch::forget() {
  connection_.sync();
  while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
  }
}

}  // namespace tilwin::desktop
