#pragma once

#include <xcb/xcb.h>

#include <span>
#include <vector>

#include "core/geometry/Rect.h"
#include "platform/x11/wire/Reply.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Windows that are shown, but that the window manager does not list: its own bars, panels that it keeps out
/// of its list, menus, and the windows in which it holds these.
struct UnlistedWindows {
  struct Entry {
    xcb_window_t window;
    Rect area;  ///< of the child of the root that holds it or that it is: with its border, in points
  };

  std::vector<Entry> windows{};        ///< children of the root and what they contain
  std::vector<Rect> areas{};           ///< of these children of the root, each once
  std::vector<xcb_window_t> onRoot{};  ///< all children of the root, also those that are listed or not shown
};

/// The children in the reply, lowest first; none if the request failed. Of more than a thousand, the upper
/// ones.
[[nodiscard]] std::vector<xcb_window_t> childrenIn(Pending<xcb_query_tree_reply>& tree);

/// `listed` are the windows of _NET_CLIENT_LIST. A few round trips, however many windows there are.
[[nodiscard]] UnlistedWindows unlistedWindows(const X11Connection& x, std::span<const xcb_window_t> listed);

}  // namespace tilwin::x11
