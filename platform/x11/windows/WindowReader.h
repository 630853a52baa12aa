#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/x11/windows/Margins.h"
#include "platform/x11/wire/Property.h"
#include "platform/x11/wire/Reply.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// One window as the server and its manager describe it at one moment.
struct WindowSnapshot {
  xcb_window_t window = XCB_WINDOW_NONE;
  std::uint32_t process = 0;  ///< _NET_WM_PID; 0 when the client does not say
  std::string application;    ///< desktop-file id, else the class of WM_CLASS
  std::string windowClass;    ///< the class of WM_CLASS
  std::string title;
  Rect client;  ///< in root coordinates, decoration excluded
  FrameShape shape;
  bool maximized = false;  ///< in either direction
  bool fullScreen = false;
  bool hidden = false;     ///< minimised
  bool standard = true;    ///< _NET_WM_WINDOW_TYPE_NORMAL, or no type and not transient
  bool furniture = false;  ///< a dock or the desktop itself: never moved

  [[nodiscard]] Rect frame() const { return shape.frameOfClient(client); }
};

/// Reads all these windows in one round trip; a window that is gone is left out, the others keep their order.
[[nodiscard]] std::vector<WindowSnapshot> readWindows(const X11Connection& x,
                                                      std::span<const xcb_window_t> windows);

/// Where a window stands and what is drawn around it: asked for when made, read when needed.
class PlaceQuestions {
public:
  PlaceQuestions(const X11Connection& x, xcb_window_t window);

  /// The client area and the shape; false when the window is gone, or when they have been read before.
  [[nodiscard]] bool answer(Rect& client, FrameShape& shape);
  /// What these two make; nothing in the same cases.
  [[nodiscard]] std::optional<Rect> frame();

private:
  Pending<xcb_get_geometry_reply> geometry_;
  Pending<xcb_translate_coordinates_reply> origin_;
  PropertyRequest frameExtents_;
  PropertyRequest shadow_;
};

/// The focused window, in one round trip when it is still `expected` and two when it is not. Nothing when no
/// window has the focus. Source: EWMH, _NET_ACTIVE_WINDOW.
[[nodiscard]] std::optional<WindowSnapshot> readActiveWindow(const X11Connection& x, xcb_window_t expected);

}  // namespace tilwin::x11
