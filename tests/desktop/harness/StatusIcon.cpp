#include "tests/desktop/harness/StatusIcon.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/Screenshot.h"

namespace tilwin::desktop {

namespace {

constexpr QRgb iconColour = 0xff0f7ae5;
constexpr int fewestPixels = 20;

/// Qt's menus have no particular type.
bool isMenu(Desktop& desktop, WindowId window) {
  auto& connection = desktop.connection();
  const auto types = connection.numbers(window, "_NET_WM_WINDOW_TYPE");
  const auto is = [&](const char* name) {
    return std::ranges::find(types, connection.atom(name)) != types.end();
  };
  return is("_NET_WM_WINDOW_TYPE_POPUP_MENU") || is("_NET_WM_WINDOW_TYPE_DROPDOWN_MENU") ||
         (is("_NET_WM_WINDOW_TYPE_NORMAL") && desktop.wmClass(window).second == "Tilwin");
}

/// The children of the root, bottom to top.
std::vector<WindowId> topLevels(XConnection& connection) {
  xcb_connection_t* xcb = connection.get();
  const XcbPtr<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(xcb, xcb_query_tree(xcb, connection.root()), nullptr));
  if (!tree) return {};
  const WindowId* first = xcb_query_tree_children(tree.get());
  return {first, first + xcb_query_tree_children_length(tree.get())};
}

}  // namespace

std::optional<Rect> StatusIcon::area() {
  const auto [found, pixels] = areaOf(iconColour, screenshot(session_.desktop().connection()));
  if (pixels < fewestPixels) return std::nullopt;
  return Rect{static_cast<double>(found.x()), static_cast<double>(found.y()),
              static_cast<double>(found.width()), static_cast<double>(found.height())};
}

bool StatusIcon::appears(Milliseconds timeout) {
  return session_.desktop().waitUntil([this] { return area().has_value(); }, timeout);
}

bool StatusIcon::disappears(Milliseconds timeout) {
  return session_.desktop().waitUntil([this] { return !area(); }, timeout);
}

void StatusIcon::open(int button) {
  const auto icon = area();
  if (!icon) throw HarnessError("the status icon is not on the screen");
  const auto click = [&] {
    session_.input().click(
        {static_cast<int>(icon->x + icon->width / 2), static_cast<int>(icon->y + icon->height / 2)}, button);
  };
  click();
  // A panel that has just started opens no menu until it has read it once, so a person clicks again.
  if (!session_.desktop().waitUntil([this] { return !menus().empty(); })) click();
  waitForMenus(1);
}

void StatusIcon::walk(const MenuPath& path) {
  for (std::size_t depth = 0; depth < path.size(); ++depth) {
    const int wanted = path[depth];
    // A submenu opens with its first row highlighted.
    const int present = depth == 0 ? 0 : 1;
    press(wanted > 0 ? "Down" : "Up", wanted > 0 ? wanted - present : -wanted);
    if (depth + 1 == path.size()) break;
    press("Right", 1);
    waitForMenus(depth + 2);
  }
}

void StatusIcon::choose(const MenuPath& path) {
  open();
  walk(path);
  press("Return", 1);
  waitForMenus(0);
}

void StatusIcon::close() {
  // Some toolkits close one menu by it, others all.
  for (std::size_t depth = menus().size(); depth > 0 && !menus().empty(); --depth) {
    press("Escape", 1);
    session_.desktop().waitUntil([&] { return menus().size() < depth; });
  }
  waitForMenus(0);
}

std::vector<Rect> StatusIcon::menus() {
  auto& desktop = session_.desktop();
  std::vector<Rect> found;
  for (const WindowId window : topLevels(desktop.connection())) {
    if (!desktop.viewable(window) || !isMenu(desktop, window)) continue;
    if (const auto area = desktop.topLevelArea(window)) found.push_back(*area);
  }
  return found;
}

void StatusIcon::press(const char* key, int times) {
  for (int time = 0; time < times; ++time) session_.input().press(key);
}

void StatusIcon::waitForMenus(std::size_t count) {
  const bool came = session_.desktop().waitUntil([&] { return menus().size() == count; });
  // A menu is drawn, and takes the keyboard, shortly after its window is there.
  session_.desktop().waitUntil([] { return false; }, Milliseconds{150});
  if (!came || menus().size() != count) {
    throw HarnessError("wanted " + std::to_string(count) + " open menus, saw " +
                       std::to_string(menus().size()));
  }
}

}  // namespace tilwin::desktop
