#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/x11/windows/Margins.h"
#include "platform/x11/windows/SizeLimits.h"
#include "platform/x11/wire/Property.h"
#include "platform/x11/wire/Reply.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The states in which the window manager, not the window, decides its frame. Source: EWMH, _NET_WM_STATE.
struct FrameStates {
  bool maximizedHorz = false;
  bool maximizedVert = false;
  bool fullScreen = false;

  bool operator==(const FrameStates&) const = default;
  [[nodiscard]] bool maximized() const { return maximizedHorz || maximizedVert; }
  /// Whether the window is in one of them.
  [[nodiscard]] bool any() const { return maximized() || fullScreen; }
};

/// The state of one window at one moment, as the server and the window manager describe it. Sources: EWMH,
/// ICCCM.
struct WindowSnapshot {
  xcb_window_t window = XCB_WINDOW_NONE;
  std::uint32_t process = 0;  ///< _NET_WM_PID; 0 if the client did not set it
  std::string application;    ///< id of the desktop entry, or else the class of WM_CLASS
  std::string windowClass;    ///< the class of WM_CLASS
  std::string title;
  Rect client;  ///< the client area without decoration, in points, in root coordinates
  FrameShape shape;
  SizeLimits limits;  ///< of the client area, as far as the client tells
  FrameStates states;
  bool hidden = false;     ///< minimised
  bool standard = true;    ///< has the type _NET_WM_WINDOW_TYPE_NORMAL, or no type and is not transient
  bool furniture = false;  ///< a panel or the desktop itself; never moved

  [[nodiscard]] Rect frame() const { return shape.frameOfClient(client); }
};

/// Whether the window belongs to this process.
[[nodiscard]] bool isOwn(const WindowSnapshot& snapshot);

/// Reads these windows in one round trip, and a few more for each if the window manager does not tell the
/// decoration. Leaves out a window that is gone; the others keep their order.
[[nodiscard]] std::vector<WindowSnapshot> readWindows(const X11Connection& x,
                                                      std::span<const xcb_window_t> windows);

/// Requests for the client area of a window, its decoration and its shadow. The constructor sends them; the
/// first read waits for the replies, and for some more if the window manager does not tell the decoration.
class PlaceQuestions {
public:
  PlaceQuestions(const X11Connection& x, xcb_window_t window);

  /// Reads the client area and the shape. Returns false if the window is gone or the replies were read
  /// before.
  [[nodiscard]] bool answer(Rect& client, FrameShape& shape);
  /// The frame that follows from these two; nothing in the same cases.
  [[nodiscard]] std::optional<Rect> frame();

private:
  const X11Connection* x_;
  xcb_window_t window_;
  Pending<xcb_get_geometry_reply> geometry_;
  Pending<xcb_translate_coordinates_reply> origin_;
  PropertyRequest frameExtents_;
  PropertyRequest shadow_;
};

/// The number of the focused window; XCB_WINDOW_NONE if no window has the focus. Anybody can write it: the
/// root and what this program's own connection created are no windows to be moved, so they count as none.
/// Source: EWMH, _NET_ACTIVE_WINDOW.
[[nodiscard]] xcb_window_t readActiveNumber(const X11Connection& x);

/// The focused window. Takes one round trip if it is `expected`, otherwise two; more as above. Nothing if no
/// window has the focus or the window is gone.
[[nodiscard]] std::optional<WindowSnapshot> readActiveWindow(const X11Connection& x, xcb_window_t expected);

}  // namespace tilwin::x11
