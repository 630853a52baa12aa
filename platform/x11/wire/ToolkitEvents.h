#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <map>
#include <set>

#include "platform/ports/MainQueue.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Shields the connection that a toolkit has to the same server. A toolkit waits for the server inside some
/// of its event handlers and handles all events that have come before it returns, so a client that makes such
/// events without pause could keep the main loop from its other work.
///
/// What happens to the root no longer reaches the toolkit as it happens. What matters to it, the work area,
/// what the window manager supports and new trays, is told to it by this class, each at most once in `pause`.
/// Of the events that other clients made with SendEvent, it gets only the kinds that have a use between
/// clients, and no more than `mostSent` in `pause`. Sources: ICCCM, EWMH.
class ToolkitEvents {
public:
  static constexpr MainQueue::Seconds pause{0.05};
  static constexpr int mostSent = 100;

  /// `toolkit` is connected to the same screen. All arguments must outlive this, and this must live as long
  /// as the queue runs.
  ToolkitEvents(X11Connection& x, MainQueue& queue, xcb_connection_t* toolkit);
  ToolkitEvents(const ToolkitEvents&) = delete;
  ToolkitEvents& operator=(const ToolkitEvents&) = delete;
  ~ToolkitEvents() = default;

  /// Whether the toolkit shall handle this event of its connection. To be asked once about each.
  [[nodiscard]] bool wants(const xcb_generic_event_t& event);

private:
  void deafenToRoot();
  void rootChanged(const xcb_property_notify_event_t& event);
  void rootTold(const xcb_client_message_event_t& event);
  void tell();

  X11Connection& x_;
  MainQueue& queue_;
  xcb_connection_t* toolkit_;
  xcb_window_t receiver_;               ///< a window of the toolkit's connection, for the events sent to it
  xcb_atom_t manager_ = XCB_ATOM_NONE;  ///< announces the owner of a selection; ICCCM, 2.8
  std::set<xcb_atom_t> changed_;
  std::map<std::uint32_t, xcb_client_message_event_t> announced_;  ///< by the selection
  int told_ = 0;  ///< events that are on their way to the toolkit
  int sent_ = 0;  ///< events from other clients since `since_`
  MainQueue::Seconds since_{};
  DeferredWork telling_;
};

}  // namespace tilwin::x11
