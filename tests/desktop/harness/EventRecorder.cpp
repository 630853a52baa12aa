#include "tests/desktop/harness/EventRecorder.h"

#include <sys/socket.h>

#include <algorithm>

namespace tilwin::desktop {

EventRecorder::EventRecorder(XConnection& connection, WindowId window)
    : connection_(connection),
      window_(window),
      deleteWindow_(connection.atom("WM_DELETE_WINDOW")),
      ping_(connection.atom("_NET_WM_PING")),
      thread_([this] { read(); }) {}

EventRecorder::~EventRecorder() {
  // Only the connection's end wakes the reader.
  shutdown(xcb_get_file_descriptor(connection_.get()), SHUT_RDWR);
  thread_.join();
}

void EventRecorder::read() {
  while (const XcbPtr<xcb_generic_event_t> event{xcb_wait_for_event(connection_.get())}) {
    const auto at = Clock::now();
    {
      const std::lock_guard lock(mutex_);
      take(*event, at);
      ++events_;
    }
    arrived_.notify_all();
  }
}

void EventRecorder::take(const xcb_generic_event_t& event, Clock::time_point at) {
  const int type = event.response_type & 0x7f;
  if (type == XCB_CONFIGURE_NOTIFY) {
    const auto& configure = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
    if (configure.window != window_) return;
    recorded_.configures.push_back({{configure.x, configure.y},
                                    {configure.width, configure.height},
                                    (event.response_type & 0x80) != 0,
                                    at});
  } else if (type == XCB_KEY_PRESS) {
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    recorded_.keys.push_back({key.detail, key.state, at});
  } else if (type == XCB_BUTTON_PRESS) {
    const auto& button = reinterpret_cast<const xcb_button_press_event_t&>(event);
    recorded_.buttons.push_back({button.detail, {button.root_x, button.root_y}, at});
  } else if (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) {
    const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
    // A grabbed keyboard is no change of focus.
    if (focus.mode == XCB_NOTIFY_MODE_GRAB || focus.mode == XCB_NOTIFY_MODE_UNGRAB) return;
    focused_ = type == XCB_FOCUS_IN;
  } else if (type == XCB_CLIENT_MESSAGE) {
    takeMessage(reinterpret_cast<const xcb_client_message_event_t&>(event));
  }
}

void EventRecorder::takeMessage(const xcb_client_message_event_t& message) {
  if (message.data.data32[0] == deleteWindow_) ++recorded_.closeRequests;
  if (message.data.data32[0] != ping_) return;
  xcb_client_message_event_t pong = message;
  pong.window = connection_.root();
  xcb_send_event(connection_.get(), 0, connection_.root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&pong));
  connection_.flush();
}

Recorded EventRecorder::recorded() const {
  const std::lock_guard lock(mutex_);
  return recorded_;
}

bool EventRecorder::focused() const {
  const std::lock_guard lock(mutex_);
  return focused_;
}

void EventRecorder::forget() {
  const std::lock_guard lock(mutex_);
  recorded_ = {};
}

bool EventRecorder::waitUntil(const Predicate& predicate, Milliseconds timeout) const {
  // What changes without an event to this window is asked about a few times a second.
  constexpr Milliseconds recheck{200};
  const auto until = Clock::now() + timeout;
  std::unique_lock lock(mutex_);
  while (true) {
    const auto seen = events_;
    lock.unlock();
    if (predicate()) return true;
    if (Clock::now() >= until) return false;
    lock.lock();
    arrived_.wait_until(lock, std::min(until, Clock::now() + recheck), [&] { return events_ != seen; });
  }
}

bool EventRecorder::waitForQuiet(Milliseconds quiet, Milliseconds timeout) const {
  const auto until = Clock::now() + timeout;
  std::unique_lock lock(mutex_);
  while (Clock::now() < until) {
    const auto seen = events_;
    if (!arrived_.wait_for(lock, quiet, [&] { return events_ != seen; })) return true;
  }
  return false;
}

}  // namespace tilwin::desktop
