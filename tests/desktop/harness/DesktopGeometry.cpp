#include "tests/desktop/harness/Desktop.h"

#include <xcb/xcb_icccm.h>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

XcbPtr<xcb_get_geometry_reply_t> geometry(XConnection& connection, WindowId window) {
  xcb_connection_t* xcb = connection.get();
  return XcbPtr<xcb_get_geometry_reply_t>(
      xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, window), nullptr));
}

Extents extentsOf(const std::vector<std::uint32_t>& numbers) {
  if (numbers.size() < 4) return {};
  return {static_cast<int>(numbers[0]), static_cast<int>(numbers[1]), static_cast<int>(numbers[2]),
          static_cast<int>(numbers[3])};
}

Rect grown(const Rect& area, const Extents& by) {
  return {area.x - by.left, area.y - by.top, area.width + by.left + by.right,
          area.height + by.top + by.bottom};
}

Extents negated(const Extents& extents) {
  return {-extents.left, -extents.right, -extents.top, -extents.bottom};
}

/// Managers and toolkits put buttons at the ends of a bar; in the middle may be a field to type in.
constexpr double alongTitleBar = 0.4;
/// Down into a header bar: past its resize border, above what stands in its lower half.
constexpr double intoHeaderBar = 14;

}  // namespace

std::optional<Rect> Desktop::clientArea(WindowId window) {
  xcb_connection_t* xcb = connection_.get();
  const auto size = geometry(connection_, window);
  const XcbPtr<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(
      xcb, xcb_translate_coordinates(xcb, window, connection_.root(), 0, 0), nullptr));
  if (!size || !origin) return std::nullopt;
  return Rect{static_cast<double>(origin->dst_x), static_cast<double>(origin->dst_y),
              static_cast<double>(size->width), static_cast<double>(size->height)};
}

Extents Desktop::frameExtents(WindowId window) {
  const auto told = connection_.numbers(window, "_NET_FRAME_EXTENTS");
  // Else it is what another manager has left there.
  if (told.size() >= 4 && supports("_NET_FRAME_EXTENTS")) return extentsOf(told);
  const auto client = clientArea(window);
  const auto outer = topLevelArea(window);
  if (!client || !outer) return {};
  return {static_cast<int>(client->x - outer->x), static_cast<int>(outer->maxX() - client->maxX()),
          static_cast<int>(client->y - outer->y), static_cast<int>(outer->maxY() - client->maxY())};
}

Extents Desktop::shadowExtents(WindowId window) {
  return extentsOf(connection_.numbers(window, "_GTK_FRAME_EXTENTS"));
}

PixelSize Desktop::sizeIncrement(WindowId window) {
  xcb_size_hints_t hints{};
  const auto cookie = xcb_icccm_get_wm_normal_hints(connection_.get(), window);
  const bool known = xcb_icccm_get_wm_normal_hints_reply(connection_.get(), cookie, &hints, nullptr) != 0;
  if (!known || (hints.flags & XCB_ICCCM_SIZE_HINT_P_RESIZE_INC) == 0) return {1, 1};
  return {hints.width_inc, hints.height_inc};
}

std::optional<Rect> Desktop::frame(WindowId window) {
  const auto area = clientArea(window);
  if (!area) return std::nullopt;
  return grown(grown(*area, frameExtents(window)), negated(shadowExtents(window)));
}

PixelPoint Desktop::titleBar(WindowId window) {
  const auto outer = frame(window);
  if (!outer) throw HarnessError("the window to take hold of has gone");
  const int bar = frameExtents(window).top;
  return {static_cast<int>(outer->x + outer->width * alongTitleBar),
          static_cast<int>(outer->y + (bar > 0 ? bar / 2.0 : intoHeaderBar))};
}

WindowId Desktop::topLevel(WindowId window) {
  xcb_connection_t* xcb = connection_.get();
  while (true) {
    const XcbPtr<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(xcb, xcb_query_tree(xcb, window), nullptr));
    if (!tree || tree->parent == tree->root || tree->parent == XCB_NONE) return window;
    window = tree->parent;
  }
}

std::optional<Rect> Desktop::topLevelArea(WindowId window) {
  const auto outer = geometry(connection_, topLevel(window));
  if (!outer) return std::nullopt;
  const double borders = 2.0 * outer->border_width;
  return Rect{static_cast<double>(outer->x), static_cast<double>(outer->y), outer->width + borders,
              outer->height + borders};
}

std::vector<Strut> Desktop::struts() {
  std::vector<Strut> struts;
  for (const WindowId window : clients()) {
    const auto numbers = connection_.numbers(window, "_NET_WM_STRUT_PARTIAL");
    if (numbers.size() < 12) continue;
    Strut strut{.window = window, .extents = extentsOf(numbers), .spans = {}};
    for (std::size_t i = 0; i < strut.spans.size(); ++i) strut.spans[i] = static_cast<int>(numbers[4 + i]);
    struts.push_back(strut);
  }
  return struts;
}

}  // namespace tilwin::desktop
