#include "platform/x11/windows/MeasuredDecoration.h"

#include <algorithm>
#include <optional>

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

/// No window manager nests windows deeper.
constexpr int mostParents = 8;

/// A window that holds the client window, asked together with it, so that both are seen at the same moment.
class Holder {
public:
  Holder(const X11Connection& x, xcb_window_t holder, xcb_window_t client)
      : tree_(x.get(), xcb_query_tree(x.get(), holder)),
        outer_(x.get(), xcb_get_geometry(x.get(), holder)),
        client_(x.get(), xcb_get_geometry(x.get(), client)),
        origin_(x.get(), xcb_translate_coordinates(x.get(), client, holder, 0, 0)) {}

  /// The window that holds this one; XCB_WINDOW_NONE if that is the root or this one is gone.
  xcb_window_t parent() {
    const auto tree = tree_.collect();
    return tree && tree->parent != tree->root ? tree->parent : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
  }

  Margins margins() {
    const auto outer = outer_.collect();
    const auto client = client_.collect();
    const auto origin = origin_.collect();
    if (!outer || !client || !origin) return {};
    // Coordinates in a window begin inside its border.
    const double border = outer->border_width;
    const auto room = [](double width) { return std::max(width, 0.0); };
    return {.left = room(origin->dst_x + border),
            .right = room(outer->width + border - origin->dst_x - client->width),
            .top = room(origin->dst_y + border),
            .bottom = room(outer->height + border - origin->dst_y - client->height)};
  }

private:
  Pending<xcb_query_tree_reply> tree_;
  Pending<xcb_get_geometry_reply> outer_;
  Pending<xcb_get_geometry_reply> client_;
  Pending<xcb_translate_coordinates_reply> origin_;
};

}  // namespace

Margins measuredDecoration(const X11Connection& x, xcb_window_t window) {
  xcb_window_t holder = window;
  for (int depth = 0; depth < mostParents; ++depth) {
    Holder asked(x, holder, window);
    const auto parent = asked.parent();
    if (parent == XCB_WINDOW_NONE) return asked.margins();
    holder = parent;
  }
  return {};
}

}  // namespace tilwin::x11
