#include "tests/desktop/harness/Desktop.h"

#include <algorithm>
#include <cmath>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

Desktop::Desktop(const std::string& display) : connection_(display), events_(connection_) {}

bool Desktop::waitUntil(const Predicate& predicate, Milliseconds timeout) {
  return events_.waitUntil(predicate, timeout);
}

bool Desktop::settle(Milliseconds quiet, Milliseconds timeout) {
  return events_.waitForQuiet(quiet, timeout);
}

std::vector<WindowId> Desktop::clients() {
  return connection_.numbers(connection_.root(), "_NET_CLIENT_LIST");
}

std::vector<WindowId> Desktop::stacking() {
  return connection_.numbers(connection_.root(), "_NET_CLIENT_LIST_STACKING");
}

std::vector<WindowId> Desktop::inView() {
  auto* xcb = connection_.get();
  const XcbPtr<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(xcb, xcb_query_tree(xcb, connection_.root()), nullptr));
  if (tree == nullptr) return {};
  const WindowId* bottom = xcb_query_tree_children(tree.get());
  std::vector<WindowId> windows(bottom, bottom + xcb_query_tree_children_length(tree.get()));
  std::erase_if(windows, [this](WindowId window) { return !viewable(window); });
  return windows;
}

std::optional<WindowId> Desktop::newest(const std::function<bool(WindowId)>& fits) {
  const auto windows = clients();
  const auto found = std::find_if(windows.rbegin(), windows.rend(), fits);
  if (found == windows.rend()) return std::nullopt;
  return *found;
}

std::optional<WindowId> Desktop::windowOfClass(const std::string& name) {
  return newest([&](WindowId window) {
    const auto [instance, className] = wmClass(window);
    return instance == name || className == name;
  });
}

std::optional<WindowId> Desktop::windowOfProcess(pid_t pid) {
  return newest([&](WindowId window) { return process(window) == pid; });
}

std::optional<WindowId> Desktop::unmanagedOfClass(const std::string& name) {
  xcb_connection_t* xcb = connection_.get();
  const XcbPtr<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(xcb, xcb_query_tree(xcb, connection_.root()), nullptr));
  if (!tree) return std::nullopt;
  const WindowId* bottom = xcb_query_tree_children(tree.get());
  for (int index = xcb_query_tree_children_length(tree.get()) - 1; index >= 0; --index) {
    const WindowId window = bottom[index];
    if (wmClass(window).second != name) continue;
    const XcbPtr<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(xcb, xcb_get_window_attributes(xcb, window), nullptr));
    const bool visible = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    if (visible && attributes->override_redirect != 0) return window;
  }
  return std::nullopt;
}

WindowId Desktop::waitForClass(const std::string& name, Milliseconds timeout) {
  std::optional<WindowId> window;
  const auto there = [&] { return (window = windowOfClass(name)) && viewable(*window); };
  if (!waitUntil(there, timeout)) throw HarnessError("no window of class " + name);
  return *window;
}

std::string Desktop::title(WindowId window) {
  if (const auto name = connection_.text(window, "_NET_WM_NAME")) return *name;
  return connection_.text(window, "WM_NAME").value_or("");
}

std::pair<std::string, std::string> Desktop::wmClass(WindowId window) {
  const std::string both = connection_.text(window, "WM_CLASS").value_or("");
  const auto end = both.find('\0');
  if (end == std::string::npos) return {both, {}};
  // c_str: the class has a terminator of its own.
  return {both.substr(0, end), both.substr(end + 1).c_str()};
}

pid_t Desktop::process(WindowId window) {
  const auto pid = connection_.numbers(window, "_NET_WM_PID");
  return pid.empty() ? 0 : static_cast<pid_t>(pid.front());
}

bool Desktop::viewable(WindowId window) {
  xcb_connection_t* xcb = connection_.get();
  const XcbPtr<xcb_get_window_attributes_reply_t> reply(
      xcb_get_window_attributes_reply(xcb, xcb_get_window_attributes(xcb, window), nullptr));
  return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

WindowId Desktop::activeWindow() {
  const auto active = connection_.numbers(connection_.root(), "_NET_ACTIVE_WINDOW");
  return active.empty() ? 0 : active.front();
}

bool Desktop::waitForFrame(WindowId window, const Rect& wanted, double tolerance, Milliseconds timeout) {
  return waitUntil(
      [&] {
        const auto now = frame(window);
        return now && std::abs(now->x - wanted.x) <= tolerance && std::abs(now->y - wanted.y) <= tolerance &&
               std::abs(now->width - wanted.width) <= tolerance &&
               std::abs(now->height - wanted.height) <= tolerance;
      },
      timeout);
}

PixelSize Desktop::screenSize() {
  xcb_connection_t* xcb = connection_.get();
  const XcbPtr<xcb_get_geometry_reply_t> reply(
      xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, connection_.root()), nullptr));
  if (!reply) return {};
  return {reply->width, reply->height};
}

std::vector<Monitor> Desktop::monitors() { return monitorsOf(connection_); }

Rect Desktop::visibleFrame(const Monitor& monitor) {
  return desktop::visibleFrame(monitor, struts(), screenSize());
}

std::optional<Rect> Desktop::workArea() {
  const auto areas = connection_.numbers(connection_.root(), "_NET_WORKAREA");
  const auto current = connection_.numbers(connection_.root(), "_NET_CURRENT_DESKTOP");
  const std::size_t at = current.empty() ? 0 : 4 * static_cast<std::size_t>(current.front());
  if (areas.size() < at + 4) return std::nullopt;
  return Rect{static_cast<double>(areas[at]), static_cast<double>(areas[at + 1]),
              static_cast<double>(areas[at + 2]), static_cast<double>(areas[at + 3])};
}

bool Desktop::composited() {
  xcb_connection_t* xcb = connection_.get();
  const XcbPtr<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
      xcb, xcb_get_selection_owner(xcb, connection_.atom("_NET_WM_CM_S0")), nullptr));
  return reply && reply->owner != XCB_NONE;
}

bool Desktop::supports(const std::string& feature) {
  const auto supported = connection_.numbers(connection_.root(), "_NET_SUPPORTED");
  return std::find(supported.begin(), supported.end(), connection_.atom(feature)) != supported.end();
}

bool Desktop::managed() {
  const auto check = connection_.numbers(connection_.root(), "_NET_SUPPORTING_WM_CHECK");
  return !check.empty() && connection_.numbers(check.front(), "_NET_SUPPORTING_WM_CHECK") == check;
}

std::string Desktop::managerName() {
  const auto check = connection_.numbers(connection_.root(), "_NET_SUPPORTING_WM_CHECK");
  return check.empty() ? std::string() : title(check.front());
}

}  // namespace tilwin::desktop
