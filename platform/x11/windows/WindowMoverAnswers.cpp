// What becomes of the requests that WindowMover.cpp sends.

#include "platform/x11/windows/WindowMover.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace tilwin::x11 {

namespace {

constexpr std::array shapeProperties{Atom::netFrameExtents, Atom::gtkFrameExtents, Atom::netWmState};

}  // namespace

void WindowMover::shapeMayHaveChanged(const xcb_property_notify_event_t& event) {
  // Toolkits change properties with every key typed. Once no correction is due, do not wake up for that.
  if (!released_.contains(event.window) && !ledger_.correctable(event.window, queue_.uptime())) {
    return watch(event.window, moves);
  }
  const bool tells =
      std::ranges::any_of(shapeProperties, [&](Atom property) { return x_.atom(property) == event.atom; });
  if (tells) changed_.insert(event.window);
}

void WindowMover::windowConfigured(const xcb_configure_notify_event_t& event) {
  if (!watched_.contains(event.window)) return;
  if (!ledger_.configured(event.window, queue_.uptime())) return watch(event.window, XCB_EVENT_MASK_NO_EVENT);
  changed_.insert(event.window);
}

void WindowMover::readWhatChanged() {
  if (changed_.empty()) return;
  const auto changed = std::exchange(changed_, {});
  for (const auto& window : readWindows(x_, std::vector(changed.begin(), changed.end()))) lookAt(window);
}

void WindowMover::lookAt(const WindowSnapshot& window) {
  if (const auto found = released_.find(window.window); found != released_.end()) {
    if (found->second.isOut(window)) placeReleased(window, released_.extract(found).mapped());
    return;
  }
  if (correctShape(window)) return;
  const Rect frame = window.frame();
  ledger_.seen(window.window, frame, window.shape, queue_.uptime());
  if (const auto request = ledger_.contested(window.window, frame, queue_.uptime())) {
    // While a window is dragged, its window manager or its own program moves it, and their last move may
    // arrive after our request.
    if (window.states.any()) return release(window, {request->frame, request->repeats, {}});
    requests_.ask(window, window.shape, request->expected, request->repeats > 0);
  } else if (ledger_.mayBeDisplaced(window.window, frame)) {
    lookLater(window.window);
  }
}

/// Sends the request again with the window's new shape. The first one was computed with the shape it had when
/// it was normal before, or else with that of the maximised or full-screen state; it changes when the window
/// leaves that state, which takes the window manager and the client some time. Returns whether the request
/// has to be sent again, now or later.
bool WindowMover::correctShape(const WindowSnapshot& window) {
  const auto request = ledger_.correctable(window.window, queue_.uptime());
  if (!request || window.states.any()) return false;
  // A window manager may have kept the window inside the screen, not yet knowing of its shadow.
  const bool isForeseen = window.shape == request->shape && request->oldShape != request->shape;
  if (window.shape == request->shape && !(isForeseen && window.frame() != request->expected)) return false;
  if (held_.isHeld(window.window)) return true;  // it is left in the user's hand
  const bool mayChange = isForeseen || window.shape == request->oldShape;
  if (mayChange && ledger_.isOpen(window.window, queue_.uptime())) {
    lookLater(window.window);
  } else {
    place(window, {request->frame, request->repeats, request->place.before}, window.shape);
  }
  return true;
}

/// What shows on the way to the answer may be larger than the window will be, or have its old shape.
void WindowMover::lookLater(xcb_window_t window) {
  unsettled_.insert(window);
  settling_.need();
}

void WindowMover::settle() {
  const auto unsettled = std::exchange(unsettled_, {});
  for (const auto& window : readWindows(x_, std::vector(unsettled.begin(), unsettled.end()))) {
    const auto now = queue_.uptime();
    const auto released = released_.find(window.window);
    const bool isOver = released != released_.end() && now >= released->second.until;
    if (!isOver && (ledger_.isOpen(window.window, now) || requests_.isAsking(window.window))) {
      lookLater(window.window);
    } else if (released != released_.end()) {
      placeReleased(window, released_.extract(released).mapped());
    } else if (!correctShape(window) && !window.states.any()) {
      const auto request = ledger_.displaced(window.window, window.frame(), now);
      if (request) requests_.ask(window, window.shape, request->expected, false);
    }
  }
}

}  // namespace tilwin::x11
