#include "platform/x11/displays/UnlistedWindows.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

using Windows = std::vector<xcb_window_t>;

/// How many levels of windows to search, from the children of the root on: a frame window, in some managers
/// one more, and the panel in it.
constexpr int levels = 3;

/// Any client can open any number of windows. Of too many, the lowest are left out.
constexpr std::ptrdiff_t mostChildren = 1024;
constexpr std::size_t mostInLevel = 4096;

/// A child of the root and what was found in it so far.
struct Branch {
  Rect area{};
  Windows found{};
  Windows level{};  ///< the deepest windows found
};

Rect areaOf(const xcb_get_geometry_reply_t& geometry) {
  const double borders = 2.0 * geometry.border_width;
  return {static_cast<double>(geometry.x), static_cast<double>(geometry.y), geometry.width + borders,
          geometry.height + borders};
}

/// Those of these children of the root that are shown.
std::vector<Branch> shownBranches(const X11Connection& x, const Windows& onRoot) {
  struct Questions {
    xcb_window_t window;
    Pending<xcb_get_window_attributes_reply> attributes;
    Pending<xcb_get_geometry_reply> geometry;
  };
  std::vector<Questions> asked;
  for (const auto window : onRoot) {
    asked.push_back({window,
                     {x.get(), xcb_get_window_attributes(x.get(), window)},
                     {x.get(), xcb_get_geometry(x.get(), window)}});
  }
  std::vector<Branch> result;
  for (auto& questions : asked) {
    const auto attributes = questions.attributes.collect();
    const auto geometry = questions.geometry.collect();
    if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
        attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) {
      continue;
    }
    result.push_back({.area = areaOf(*geometry), .level = {questions.window}});
  }
  return result;
}

/// Goes one level deeper in each branch.
void descend(const X11Connection& x, std::vector<Branch>& branches) {
  std::vector<std::pair<Branch*, Pending<xcb_query_tree_reply>>> asked;
  for (auto& branch : branches) {
    for (const auto window : branch.level) {
      if (asked.size() == mostInLevel) break;
      asked.emplace_back(&branch, Pending<xcb_query_tree_reply>(x.get(), xcb_query_tree(x.get(), window)));
    }
    branch.level.clear();
  }
  for (auto& [branch, tree] : asked) {
    const auto children = childrenIn(tree);
    branch->level.insert(branch->level.end(), children.begin(), children.end());
  }
}

}  // namespace

std::vector<xcb_window_t> childrenIn(Pending<xcb_query_tree_reply>& tree) {
  const auto reply = tree.collect();
  if (!reply) return {};
  const std::span children(xcb_query_tree_children(reply.get()), reply->children_len);
  return {children.end() - std::min(std::ssize(children), mostChildren), children.end()};
}

UnlistedWindows unlistedWindows(const X11Connection& x, std::span<const xcb_window_t> listed) {
  const std::unordered_set<xcb_window_t> known(listed.begin(), listed.end());
  const auto holdsListed = [&](const Branch& branch) {
    return std::ranges::any_of(branch.level, [&](xcb_window_t window) { return known.contains(window); });
  };
  Pending<xcb_query_tree_reply> root(x.get(), xcb_query_tree(x.get(), x.root()));
  UnlistedWindows result{.onRoot = childrenIn(root)};
  auto branches = shownBranches(x, result.onRoot);
  for (int level = 0; level < levels; ++level) {
    if (level > 0) descend(x, branches);
    std::erase_if(branches, holdsListed);
    for (auto& branch : branches) std::ranges::copy(branch.level, std::back_inserter(branch.found));
  }
  for (const auto& branch : branches) {
    result.areas.push_back(branch.area);
    for (const auto window : branch.found) result.windows.push_back({window, branch.area});
  }
  return result;
}

}  // namespace tilwin::x11
