#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/ports/DesktopWindows.h"
#include "platform/ports/MainQueue.h"
#include "platform/x11/displays/X11Displays.h"
#include "platform/x11/windows/DesktopEntries.h"
#include "platform/x11/windows/FocusHistory.h"
#include "platform/x11/windows/HeldWindow.h"
#include "platform/x11/windows/UnlistedClients.h"
#include "platform/x11/windows/WindowIds.h"
#include "platform/x11/windows/WindowMover.h"
#include "platform/x11/windows/WindowReader.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The windows of an X11 desktop, read and moved through its window manager. Frames are in points and are
/// what the user sees: with decorations, without invisible client-side shadows. A key press costs one round
/// trip to read the focused window and one request to move it, if the window manager tells the decoration of
/// windows and takes that request. A window that closes meanwhile is left out or not moved; nothing throws.
///
/// Sources: EWMH (_NET_ACTIVE_WINDOW, _NET_CLIENT_LIST, _NET_MOVERESIZE_WINDOW, _NET_WM_STATE,
/// _NET_FRAME_EXTENTS), ICCCM (WM_CLASS, WM_TRANSIENT_FOR).
class X11WindowProvider : public DesktopWindows {
public:
  /// All arguments must outlive this. `held` is shared with `X11Pointer`, which requests its frame in
  /// advance.
  X11WindowProvider(X11Connection& x, X11Displays& displays, HeldWindow& held, MainQueue& queue);

  [[nodiscard]] std::vector<DisplayInfo> displays() override;
  [[nodiscard]] std::optional<WindowInfo> focusedWindow() override;
  [[nodiscard]] std::vector<WindowInfo> allWindows() override;
  [[nodiscard]] std::optional<Rect> frame(std::int64_t of) override;
  [[nodiscard]] std::optional<WindowInfo> lastFocusedWindow() override;
  [[nodiscard]] std::optional<WindowInfo> window(Point at) override;
  /// How the windows are moved, for the report of a bug.
  [[nodiscard]] MoveRequests& requests() { return mover_.requests(); }

private:
  bool applyFrame(std::int64_t id, const Rect& frame) override;
  bool applyRestore(std::int64_t id, const Rect& frame) override;
  /// A snapshot is up to date until the next event arrives.
  struct Seen {
    WindowSnapshot snapshot;
    std::uint64_t generation = 0;
  };

  void listenToEvents();
  void noteActiveWindow();
  void propertyChanged(const xcb_property_notify_event_t& event);
  void forgetClosedWindows(std::vector<xcb_window_t> open);
  void forget(xcb_window_t window);
  [[nodiscard]] WindowInfo infoFor(const WindowSnapshot& snapshot, std::int64_t zOrder);
  [[nodiscard]] std::optional<WindowSnapshot> freshSnapshot(xcb_window_t window) const;

  X11Connection& x_;
  X11Displays& displays_;
  HeldWindow& held_;
  DesktopEntries desktopEntries_;
  WindowIds ids_;
  WindowMover mover_;
  bool isActiveStale_ = false;
  xcb_window_t activeWindow_ = XCB_WINDOW_NONE;
  FocusHistory focusHistory_;
  UnlistedClients unlisted_;
  std::optional<Seen> lastSeen_;
  DeferredWork closing_;
};

}  // namespace tilwin::x11
