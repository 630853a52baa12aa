#include "platform/x11/WindowAtPoint.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "platform/x11/Property.h"
#include "platform/x11/Reply.h"

namespace tilwin::x11 {

namespace {

using Windows = std::vector<xcb_window_t>;

/// Managers put a window into a frame, and some put another window between the two.
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

}  // namespace

std::optional<xcb_window_t> managedWindowAt(const X11Connection& x, Point at) {
  PropertyRequest clientList(x.get(), x.root(), x.atom(Atom::netClientList));
  Pending<xcb_translate_coordinates_reply> below(
      x.get(), xcb_translate_coordinates(x.get(), x.root(), x.root(), static_cast<std::int16_t>(at.x),
                                         static_cast<std::int16_t>(at.y)));
  const auto managed = clientList.numbers();
  const auto top = below.collect();
  if (!top || top->child == XCB_WINDOW_NONE) return std::nullopt;
  Windows level{top->child};
  for (int depth = 0; depth < deepest && !level.empty(); ++depth) {
    const auto found = std::find_first_of(level.begin(), level.end(), managed.begin(), managed.end());
    if (found != level.end()) return *found;
    level = childrenOf(x, level);
  }
  return std::nullopt;
}

}  // namespace tilwin::x11
