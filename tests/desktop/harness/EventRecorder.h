#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "tests/desktop/harness/Pixels.h"
#include "tests/desktop/harness/Waiting.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// A ConfigureNotify as it reached the client. A synthetic one (sent by the manager; ICCCM 4.1.5) has root
/// coordinates; a real one is relative to the parent, which may be a frame.
struct Configure {
  PixelPoint position;
  PixelSize size;
  bool synthetic = false;
  Clock::time_point at;
};

struct KeyPress {
  xcb_keycode_t key = 0;
  /// The modifiers and locks down at the time (core protocol).
  std::uint16_t state = 0;
  Clock::time_point at;
};

struct ButtonPress {
  int button = 0;
  PixelPoint position;
  Clock::time_point at;
};

/// The events a client window received, in order of arrival.
struct Recorded {
  std::vector<Configure> configures;
  std::vector<KeyPress> keys;
  std::vector<ButtonPress> buttons;
  int closeRequests = 0;
};

/// Reads one window's events on its own thread and answers the window manager's pings. The connection must
/// outlive it, and nothing else may read events from it.
class EventRecorder {
public:
  EventRecorder(XConnection& connection, WindowId window);
  ~EventRecorder();
  EventRecorder(const EventRecorder&) = delete;
  EventRecorder& operator=(const EventRecorder&) = delete;

  Recorded recorded() const;
  bool focused() const;
  void forget();

  /// Waits until the predicate holds, evaluating it after each event. Returns false on timeout.
  bool waitUntil(const Predicate& predicate, Milliseconds timeout) const;
  /// Waits until no event has arrived for that long; returns false on timeout.
  bool waitForQuiet(Milliseconds quiet, Milliseconds timeout) const;

private:
  void read();
  void take(const xcb_generic_event_t& event, Clock::time_point at);
  void takeMessage(const xcb_client_message_event_t& message);

  XConnection& connection_;
  const WindowId window_;
  const xcb_atom_t deleteWindow_;
  const xcb_atom_t ping_;
  mutable std::mutex mutex_;
  mutable std::condition_variable arrived_;
  Recorded recorded_;
  bool focused_ = false;
  std::uint64_t events_ = 0;
  std::thread thread_;
};

}  // namespace tilwin::desktop
