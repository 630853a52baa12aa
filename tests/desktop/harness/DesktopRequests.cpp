#include <algorithm>
#include <array>
#include <cmath>

#include "tests/desktop/harness/Desktop.h"
#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// The source indication "a pager or another program for the user" (EWMH).
constexpr std::uint32_t fromPager = 2;
/// ICCCM 4.1.4.
constexpr std::uint32_t iconicState = 3;

struct StateName {
  WindowState state;
  const char* atom;
};

constexpr std::array<StateName, 6> stateNames{{
    {WindowState::maximizedVertically, "_NET_WM_STATE_MAXIMIZED_VERT"},
    {WindowState::maximizedHorizontally, "_NET_WM_STATE_MAXIMIZED_HORZ"},
    {WindowState::fullScreen, "_NET_WM_STATE_FULLSCREEN"},
    {WindowState::hidden, "_NET_WM_STATE_HIDDEN"},
    {WindowState::focused, "_NET_WM_STATE_FOCUSED"},
    {WindowState::above, "_NET_WM_STATE_ABOVE"},
}};

const char* atomOf(WindowState state) {
  for (const auto& row : stateNames) {
    if (row.state == state) return row.atom;
  }
  throw HarnessError("no such window state");
}

std::uint32_t whole(double value) {
  return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(value)));
}

}  // namespace

bool Desktop::activate(WindowId window) {
  // One that has just opened may be about to take the focus from it.
  if (activeWindow() == window) settle();
  connection_.sendToRoot(window, "_NET_ACTIVE_WINDOW", {fromPager, XCB_CURRENT_TIME, 0, 0, 0});
  return waitUntil([&] { return activeWindow() == window; });
}

void Desktop::close(WindowId window) {
  connection_.sendToRoot(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, fromPager, 0, 0, 0});
}

bool Desktop::has(WindowId window, WindowState state) {
  const xcb_atom_t wanted = connection_.atom(atomOf(state));
  const auto states = connection_.numbers(window, "_NET_WM_STATE");
  return std::find(states.begin(), states.end(), wanted) != states.end();
}

bool Desktop::maximized(WindowId window) {
  return has(window, WindowState::maximizedVertically) && has(window, WindowState::maximizedHorizontally);
}

void Desktop::set(WindowId window, WindowState state, bool on) {
  if (state == WindowState::hidden) {
    if (on) connection_.sendToRoot(window, "WM_CHANGE_STATE", {iconicState, 0, 0, 0, 0});
    if (!on) connection_.sendToRoot(window, "_NET_ACTIVE_WINDOW", {fromPager, XCB_CURRENT_TIME, 0, 0, 0});
    return;
  }
  connection_.sendToRoot(window, "_NET_WM_STATE",
                         {on ? 1U : 0U, connection_.atom(atomOf(state)), 0, fromPager, 0});
}

void Desktop::setMaximized(WindowId window, bool on) {
  connection_.sendToRoot(window, "_NET_WM_STATE",
                         {on ? 1U : 0U, connection_.atom(atomOf(WindowState::maximizedVertically)),
                          connection_.atom(atomOf(WindowState::maximizedHorizontally)), fromPager, 0});
}

PlaceRequest Desktop::placeRequest(WindowId window, const Rect& wanted) {
  // By north-west gravity the position is that of the frame's corner; a client's own X border, which xterm
  // has, then plays no part.
  constexpr std::uint32_t allFour = 0xf00;
  const Extents frame = frameExtents(window);
  const Extents shadow = shadowExtents(window);
  const bool placesClient = placing_ == Placing::clientByMessage || placing_ == Placing::clientByRequest;
  const double left = placesClient ? frame.left - shadow.left : -shadow.left;
  const double top = placesClient ? frame.top - shadow.top : -shadow.top;
  return {window,
          {XCB_GRAVITY_NORTH_WEST | allFour | fromPager << 12U, whole(wanted.x + left), whole(wanted.y + top),
           whole(wanted.width - frame.left - frame.right + shadow.left + shadow.right),
           whole(wanted.height - frame.top - frame.bottom + shadow.top + shadow.bottom)}};
}

void Desktop::place(WindowId window, const Rect& wanted) { send(placeRequest(window, wanted)); }

void Desktop::send(const PlaceRequest& request) {
  if (placing_ == Placing::frameByMessage || placing_ == Placing::clientByMessage) {
    return connection_.sendToRoot(request.window, "_NET_MOVERESIZE_WINDOW", request.data);
  }
  constexpr std::uint16_t all =
      XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT;
  xcb_configure_window(connection_.get(), request.window, all, request.data.data() + 1);
  connection_.flush();
}

}  // namespace tilwin::desktop
