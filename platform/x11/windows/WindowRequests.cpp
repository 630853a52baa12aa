#include "platform/x11/windows/WindowRequests.h"

#include <array>
#include <cmath>

namespace tilwin::x11 {

namespace {

constexpr std::uint32_t sourcePager = 2;  // EWMH source indication: a direct action of the user
constexpr std::uint32_t stateRemove = 0;

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

/// Negative positions are sent as 32-bit two's complement.
std::uint32_t onWire(double value) {
  return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(value)));
}

}  // namespace

void requestRelease(const X11Connection& x, const WindowSnapshot& window) {
  if (window.fullScreen) {
    tellManager(x, window.window, Atom::netWmState,
                {stateRemove, x.atom(Atom::netWmStateFullscreen), 0, sourcePager, 0});
  }
  if (window.maximized) {
    tellManager(x, window.window, Atom::netWmState,
                {stateRemove, x.atom(Atom::netWmStateMaximizedVert), x.atom(Atom::netWmStateMaximizedHorz),
                 sourcePager, 0});
  }
}

void requestFrame(const X11Connection& x, const WindowSnapshot& window, const Rect& frame) {
  constexpr std::uint32_t positionAndSize = 0xFU << 8U;
  constexpr std::uint32_t how = XCB_GRAVITY_NORTH_WEST | positionAndSize | (sourcePager << 12U);
  const Rect request = window.shape.requestForFrame(frame);
  tellManager(x, window.window, Atom::netMoveResizeWindow,
              {how, onWire(request.x), onWire(request.y), onWire(request.width), onWire(request.height)});
}

}  // namespace tilwin::x11
