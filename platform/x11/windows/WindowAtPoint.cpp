#include "platform/x11/windows/WindowAtPoint.h"

#include <algorithm>
#include <span>
#include <vector>

#include "core/geometry/Rect.h"
#include "platform/x11/wire/ClientList.h"
#include "platform/x11/wire/Property.h"
#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

using Windows = std::vector<xcb_window_t>;

/// How many levels of the window tree to search. A window manager puts a window into a frame window, and some
/// put one more window between the two.
constexpr int deepest = 3;

Windows childrenOf(const X11Connection& x, const Windows& parents) {
  std::vector<Pending<xcb_query_tree_reply>> asked;
  for (const auto parent : parents) asked.emplace_back(x.get(), xcb_query_tree(x.get(), parent));
  Windows result;
  for (auto& question : asked) {
    const auto tree = question.collect();
    if (!tree) continue;
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    result.insert(result.end(), children.begin(), children.end());
  }
  return result;
}

std::optional<xcb_window_t> managedWindowIn(const X11Connection& x, xcb_window_t top,
                                            const Windows& managed) {
  Windows level{top};
  for (int depth = 0; depth < deepest && !level.empty(); ++depth) {
    const auto found = std::find_first_of(level.begin(), level.end(), managed.begin(), managed.end());
    if (found != level.end()) return *found;
    level = childrenOf(x, level);
  }
  return std::nullopt;
}

/// The visible children of the root whose area contains the point, topmost first.
Windows stackAt(const X11Connection& x, Point at) {
  struct Questions {
    xcb_window_t window;
    Pending<xcb_get_window_attributes_reply> attributes;
    Pending<xcb_get_geometry_reply> geometry;
  };
  std::vector<Questions> asked;
  for (const auto window : childrenOf(x, {x.root()})) {
    asked.push_back({window,
                     {x.get(), xcb_get_window_attributes(x.get(), window)},
                     {x.get(), xcb_get_geometry(x.get(), window)}});
  }
  Windows result;
  for (auto& questions : asked) {
    const auto attributes = questions.attributes.collect();
    const auto geometry = questions.geometry.collect();
    if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE) continue;
    const Rect area{static_cast<double>(geometry->x), static_cast<double>(geometry->y),
                    static_cast<double>(geometry->width), static_cast<double>(geometry->height)};
    if (area.contains(at.x, at.y)) result.push_back(questions.window);
  }
  std::reverse(result.begin(), result.end());
  return result;
}

}  // namespace

std::optional<xcb_window_t> managedWindowAt(const X11Connection& x, Point at) {
  PropertyRequest clientList(x.get(), x.root(), x.atom(Atom::netClientList), mostWindows);
  Pending<xcb_translate_coordinates_reply> uppermost(
      x.get(), xcb_translate_coordinates(x.get(), x.root(), x.root(), static_cast<std::int16_t>(at.x),
                                         static_cast<std::int16_t>(at.y)));
  const auto managed = clientList.numbers();
  const auto top = uppermost.collect();
  if (!top || top->child == XCB_WINDOW_NONE) return std::nullopt;
  if (const auto found = managedWindowIn(x, top->child, managed)) return found;
  for (const auto window : stackAt(x, at)) {
    if (const auto found = managedWindowIn(x, window, managed)) return found;
  }
  return std::nullopt;
}

}  // namespace tilwin::x11
