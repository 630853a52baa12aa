#include "platform/x11/windows/WindowRequests.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tilwin::x11 {

namespace {

constexpr std::uint32_t sourcePager = 2;  // EWMH source indication: a direct action of the user
constexpr std::uint32_t stateRemove = 0;
constexpr std::uint32_t stateAdd = 1;

void tellManager(const X11Connection& x, xcb_window_t window, Atom message,
                 const std::array<std::uint32_t, 5>& data) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = x.atom(message);
  for (std::size_t index = 0; index < data.size(); ++index) event.data.data32[index] = data[index];
  xcb_send_event(x.get(), 0, x.root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&event));
}

/// What is full screen and maximised too leaves full screen first, and enters it last.
void changeStates(const X11Connection& x, xcb_window_t window, std::uint32_t how, const FrameStates& states) {
  const auto atomIf = [&](bool isSet, Atom state) {
    return isSet ? x.atom(state) : xcb_atom_t{XCB_ATOM_NONE};
  };
  std::array changes{
      std::pair(atomIf(states.fullScreen, Atom::netWmStateFullscreen), xcb_atom_t{XCB_ATOM_NONE}),
      std::pair(atomIf(states.maximizedVert, Atom::netWmStateMaximizedVert),
                atomIf(states.maximizedHorz, Atom::netWmStateMaximizedHorz))};
  if (how == stateAdd) std::ranges::reverse(changes);
  for (auto [first, second] : changes) {
    if (first == XCB_ATOM_NONE) std::swap(first, second);
    if (first != XCB_ATOM_NONE)
      tellManager(x, window, Atom::netWmState, {how, first, second, sourcePager, 0});
  }
}

/// Negative positions are sent as 32-bit two's complement.
std::uint32_t onWire(double value) {
  return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(value)));
}

/// The position to give in a request for the corner of the decoration to come there, with a client area of
/// that size.
Point positionFor(const WindowSnapshot& window, const FrameShape& shape, const Rect& request) {
  const Margins& decoration = shape.decoration;
  const Rect outer{request.x, request.y, request.width + decoration.left + decoration.right,
                   request.height + decoration.top + decoration.bottom};
  const Rect client{request.x + decoration.left, request.y + decoration.top, request.width, request.height};
  return positionByGravity(window.limits.gravity, outer, client);
}

/// Within the window's limits, as some managers take what they are asked for.
Rect requestWithinLimits(const WindowSnapshot& window, const FrameShape& shape, const Rect& frame) {
  const Rect request = shape.requestForFrame(frame);
  const Size size = window.limits.clamped({request.width, request.height});
  return {request.x, request.y, size.width, size.height};
}

}  // namespace

void requestRelease(const X11Connection& x, const WindowSnapshot& window) {
  changeStates(x, window.window, stateRemove, window.states);
}

void requestStates(const X11Connection& x, xcb_window_t window, const FrameStates& states) {
  changeStates(x, window, stateAdd, states);
}

void requestFrame(const X11Connection& x, const WindowSnapshot& window, const FrameShape& shape,
                  const Rect& frame) {
  constexpr std::uint32_t positionAndSize = 0xFU << 8U;
  const std::uint32_t how = window.limits.gravity | positionAndSize | (sourcePager << 12U);
  const Rect request = requestWithinLimits(window, shape, frame);
  const Point at = positionFor(window, shape, request);
  tellManager(x, window.window, Atom::netMoveResizeWindow,
              {how, onWire(at.x), onWire(at.y), onWire(request.width), onWire(request.height)});
}

void configureFrame(const X11Connection& x, const WindowSnapshot& window, const FrameShape& shape,
                    const Rect& frame) {
  constexpr std::uint16_t positionAndSize =
      XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT;
  const Rect request = requestWithinLimits(window, shape, frame);
  const Point at = positionFor(window, shape, request);
  const std::array values{onWire(at.x), onWire(at.y), onWire(request.width), onWire(request.height)};
  xcb_configure_window(x.get(), window.window, positionAndSize, values.data());
}

void requestUntiling(const X11Connection& x, xcb_window_t window) {
  for (const auto change : {stateAdd, stateRemove}) {
    tellManager(x, window, Atom::netWmState,
                {change, x.atom(Atom::netWmStateMaximizedVert), 0, sourcePager, 0});
  }
}

void requestDrag(const X11Connection& x, xcb_window_t window, Point from) {
  constexpr std::uint32_t move = 8;
  constexpr std::uint32_t firstButton = 1;
  tellManager(x, window, Atom::netWmMoveResize,
              {onWire(from.x), onWire(from.y), move, firstButton, sourcePager});
}

void requestDragEnd(const X11Connection& x, xcb_window_t window) {
  constexpr std::uint32_t cancel = 11;
  tellManager(x, window, Atom::netWmMoveResize, {0, 0, cancel, 0, sourcePager});
}

}  // namespace tilwin::x11
