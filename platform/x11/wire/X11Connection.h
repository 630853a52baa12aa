#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/ports/SystemLog.h"
#include "platform/x11/wire/Atoms.h"

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
/// Errors of requests on windows that no longer exist are expected and ignored. Any other asynchronous error
/// is logged once for each kind of error and request.
class X11Connection {
public:
  using EventHandler = std::function<void(const xcb_generic_event_t&)>;

  /// Connects to the server named by DISPLAY. Throws X11Unavailable if that fails, or if the server or its
  /// window manager lacks a required feature. The log must outlive the connection.
  explicit X11Connection(SystemLog& log);
  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;
  ~X11Connection() = default;

  [[nodiscard]] xcb_connection_t* get() const { return connection_.get(); }
  [[nodiscard]] xcb_window_t root() const { return root_; }
  [[nodiscard]] xcb_atom_t atom(Atom name) const { return atoms_[name]; }
  [[nodiscard]] int fileDescriptor() const { return xcb_get_file_descriptor(get()); }
  /// The number of the first event of an extension; the server must have the extension.
  [[nodiscard]] std::uint8_t firstEvent(xcb_extension_t& extension) const;

  /// Calls the handler for every event with this response type. A handler is never removed, so what it uses
  /// must live until the last `dispatch`.
  void onEvent(std::uint8_t responseType, EventHandler handler);
  /// Called once, from `dispatch` or `dispatchQueued`, when the connection to the server is lost.
  void onLost(std::function<void()> handler) { lost_ = std::move(handler); }

  /// Reads what has arrived and delivers all of it. If the server sends more meanwhile, the descriptor stays
  /// readable.
  void dispatch();
  /// Delivers the events that xcb read while it waited for a reply. Does not read from the descriptor.
  void dispatchQueued();
  void flush() const { xcb_flush(get()); }
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
  void take(xcb_generic_event_t* taken);
  void deliver(const xcb_generic_event_t& event);
  void noteError(const xcb_generic_error_t& error);

  SystemLog& log_;
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  xcb_window_t root_;
  Atoms atoms_;
  std::vector<std::pair<std::uint8_t, EventHandler>> handlers_;
  std::function<void()> lost_;
  std::set<std::pair<std::uint8_t, std::uint8_t>> loggedErrors_;
  std::uint64_t generation_ = 0;
};

}  // namespace tilwin::x11
