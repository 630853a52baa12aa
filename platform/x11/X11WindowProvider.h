#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "platform/ports/DesktopWindows.h"
#include "platform/ports/MainQueue.h"
#include "platform/x11/DesktopEntries.h"
#include "platform/x11/MoveLedger.h"
#include "platform/x11/WindowIds.h"
#include "platform/x11/WindowReader.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Displays.h"

namespace tilwin::x11 {

/// The windows of an X11 desktop, read and moved through its window manager. Frames are outer frames as they
/// look on the screen: decorations included, invisible client-side shadows left out. A key press costs one
/// round trip to learn of the focused window and one request to move it.
///
/// Sources: EWMH (_NET_ACTIVE_WINDOW, _NET_CLIENT_LIST, _NET_MOVERESIZE_WINDOW, _NET_WM_STATE,
/// _NET_FRAME_EXTENTS), ICCCM (WM_CLASS, WM_TRANSIENT_FOR).
class X11WindowProvider : public DesktopWindows {
public:
  /// Connection, displays and queue must outlive this.
  X11WindowProvider(X11Connection& x, X11Displays& displays, MainQueue& queue);

  [[nodiscard]] std::vector<DisplayInfo> displays() override;
  [[nodiscard]] std::optional<WindowInfo> focusedWindow() override;
  [[nodiscard]] std::vector<WindowInfo> allWindows() override;
  bool setFrame(std::int64_t id, const Rect& frame) override;
  [[nodiscard]] std::optional<Rect> frame(std::int64_t of) override;
  [[nodiscard]] std::optional<WindowInfo> window(Point at) override;

  /// Asks where the window stands whose `frame` was read last, if since the last press. Until the next event
  /// `frame` then costs no round trip of its own, if somebody else waits for one meanwhile.
  void prepareFrame();

private:
  /// A snapshot is as good as fresh until an event has come in after it.
  struct Seen {
    WindowSnapshot snapshot;
    std::uint64_t generation = 0;
  };

  struct Prepared {
    Prepared(const X11Connection& x, xcb_window_t asked)
        : window(asked), generation(x.generation()), place(x, asked) {}

    xcb_window_t window;
    std::uint64_t generation;
    PlaceQuestions place;
  };

  void listenToEvents();
  void propertyChanged(const xcb_property_notify_event_t& event);
  void shapeMayHaveChanged(const xcb_property_notify_event_t& event);
  void windowConfigured(xcb_window_t window);
  void insist(xcb_window_t window);
  void correctShape(xcb_window_t window);
  void forgetClosedWindows();
  [[nodiscard]] WindowInfo infoFor(const WindowSnapshot& snapshot, std::int64_t zOrder);
  [[nodiscard]] std::optional<WindowSnapshot> freshSnapshot(xcb_window_t window) const;
  void move(const WindowSnapshot& snapshot, const Rect& frame);
  void watch(xcb_window_t window, std::uint32_t eventMask);

  X11Connection& x_;
  MainQueue& queue_;
  X11Displays& displays_;
  DesktopEntries desktopEntries_;
  WindowIds ids_;
  MoveLedger ledger_;
  std::set<xcb_window_t> watched_;  ///< windows we moved, and hear of
  xcb_window_t activeWindow_ = XCB_WINDOW_NONE;
  xcb_window_t inHand_ = XCB_WINDOW_NONE;  ///< what was watched since the last press
  std::optional<Prepared> prepared_;
  std::optional<Seen> lastSeen_;
  DeferredWork closing_;
};

}  // namespace tilwin::x11
