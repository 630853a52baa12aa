#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/ports/SystemLog.h"
#include "platform/x11/wire/Atoms.h"
#include "platform/x11/wire/Reply.h"
#include "platform/x11/wire/WindowEventMasks.h"

namespace tilwin::x11 {

/// Thrown if this desktop cannot be used; `what()` is one line for the person who started the program.
class X11Unavailable : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// The program's connection to the X server, with its atoms and incoming events. Nothing here polls: the main
/// loop watches `fileDescriptor`, calls `dispatch` when it is readable and `dispatchQueued` before it sleeps.
/// For the main thread.
///
/// Other clients can send events without pause, faster than anybody can ask the server about each. So an
/// event handler only notes what has become stale; what follows from that is read once for all events of a
/// turn of the loop, and the loop gets its turn in between.
///
/// Events that another client made with SendEvent are dropped, apart from the kinds that clients have to send
/// so: they would be taken for what the user does, or for changes that never happened.
///
/// Errors of requests on windows that no longer exist are expected and ignored. Any other asynchronous error
/// is logged once for each kind of error and request.
class X11Connection {
public:
  using EventHandler = std::function<void(const xcb_generic_event_t&)>;

  /// Connects to the server named by DISPLAY. Throws X11Unavailable if that fails, if the server lacks a
  /// required feature, or if it goes meanwhile. The log must outlive the connection.
  explicit X11Connection(SystemLog& log);
  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;
  ~X11Connection() = default;

  [[nodiscard]] xcb_connection_t* get() const { return connection_.get(); }
  [[nodiscard]] xcb_window_t root() const { return root_; }
  [[nodiscard]] xcb_atom_t atom(Atom name) const { return atoms_[name]; }
  [[nodiscard]] SystemLog& log() const { return log_; }
  [[nodiscard]] int fileDescriptor() const { return xcb_get_file_descriptor(get()); }
  /// The number of the first event of an extension, and the number by which requests and generic events name
  /// it; 0, which no event has, once the server has gone. The server must have the extension.
  [[nodiscard]] std::uint8_t firstEvent(xcb_extension_t& extension) const;
  [[nodiscard]] std::uint8_t majorOpcode(xcb_extension_t& extension) const;

  /// Whether the window manager says that it supports this message or property. Takes a round trip the first
  /// time, and again after it has said something else or another one has started. Source: EWMH,
  /// _NET_SUPPORTED.
  [[nodiscard]] bool managerSupports(Atom feature) const;

  /// Calls the handler for every event with this response type. It must not wait for the server. A handler is
  /// never removed, so what it uses must live until the last `dispatch`.
  void onEvent(std::uint8_t responseType, EventHandler handler);
  /// Calls the handler each time after all events that had arrived were delivered or dropped. Here is the
  /// place to ask the server about what the events have made stale.
  void afterEvents(std::function<void()> handler) { afterEvents_.push_back(std::move(handler)); }
  /// Called once, from `dispatch`, `dispatchQueued` or `tellIfLost`, when the connection to the server is
  /// lost. Requests and replies do not tell: of a server that has gone, all replies are missing.
  void onLost(std::function<void()> handler) { lost_ = std::move(handler); }
  /// Both are for before a conclusion is drawn from what is missing. They read nothing and wait for nothing.
  void tellIfLost();
  [[nodiscard]] bool isLost() const;

  /// Reads what has arrived, at most what fits into xcb's buffer (16 KiB), and delivers it. If the server
  /// sends more meanwhile, the descriptor stays readable.
  void dispatch();
  /// Delivers the events that xcb read while it waited for a reply. Does not read from the descriptor.
  /// Returns true if more have come meanwhile: nothing tells of those, so call this again before sleeping.
  bool dispatchQueued();
  void flush() const { xcb_flush(get()); }
  /// What each part of the program wants to hear of each window, the root included. Only here may events of a
  /// window of another client be selected.
  [[nodiscard]] WindowEventMasks& masks() { return masks_; }
  using EventCounts = std::unordered_map<xcb_window_t, int>;
  /// How many changes of its properties each window has sent since the last reset; what clients made up
  /// counts for the root.
  [[nodiscard]] const EventCounts& eventCounts() const { return eventCounts_; }
  void resetEventCounts() { eventCounts_.clear(); }
  /// Delivers what would have come if everything about the window had changed, to read it again.
  void pretendChanged(xcb_window_t window);
  /// Whether this connection created the window.
  [[nodiscard]] bool created(xcb_window_t window) const;
  /// Grows with every event and error that arrives. State read at another generation may be stale.
  [[nodiscard]] std::uint64_t generation() const { return generation_; }

private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  struct Opened {
    std::unique_ptr<xcb_connection_t, Disconnect> connection;
    int screenNumber = 0;
  };

  X11Connection(SystemLog& log, Opened opened);
  static Opened open();
  /// The next event in memory, if any.
  Reply<xcb_generic_event_t> next();
  void take(const xcb_generic_event_t& event);
  void count(const xcb_generic_event_t& event);
  void deliver(const xcb_generic_event_t& event);
  void pretendDestroyed(xcb_window_t window);
  void noteError(const xcb_generic_error_t& error);

  SystemLog& log_;
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  xcb_window_t root_;
  Atoms atoms_;
  WindowEventMasks masks_;
  EventCounts eventCounts_;
  std::vector<std::pair<std::uint8_t, EventHandler>> handlers_;
  std::vector<std::function<void()>> afterEvents_;
  Reply<xcb_generic_event_t> ahead_;  ///< taken from xcb's queue to see whether that is empty
  std::function<void()> lost_;
  mutable std::optional<std::vector<std::uint32_t>> supported_;  ///< nothing if it has to be read again
  std::set<std::pair<std::uint8_t, std::uint8_t>> loggedErrors_;
  std::uint64_t generation_ = 0;
};

}  // namespace tilwin::x11
