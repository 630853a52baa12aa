#include "platform/x11/windows/WindowMover.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/geometry/TilePlace.h"
#include "platform/x11/windows/OpenWindows.h"
#include "platform/x11/windows/WindowRequests.h"

namespace tilwin::x11 {

namespace {

constexpr MainQueue::Seconds inThisTurn{0};
/// A window that was just dropped may be moved again by its window manager and by its own program.
constexpr int repeatsForDropped = 3;
/// How long a window manager may take to let a window out of its states. A tile of its own it may keep in
/// one.
constexpr MainQueue::Seconds releasePatience{0.2};

}  // namespace

WindowMover::WindowMover(X11Connection& x, X11Displays& displays, HeldWindow& held, MainQueue& queue)
    : x_(x),
      displays_(displays),
      held_(held),
      queue_(queue),
      requests_(x, queue),
      reading_(queue, inThisTurn, [this] { readWhatChanged(); }),
      settling_(queue, MoveLedger::burstTime, [this] { settle(); }) {
  listenToEvents();
}

void WindowMover::listenToEvents() {
  requests_.onRepeated([this](xcb_window_t window) { ledger_.repeated(window, queue_.uptime()); });
  requests_.onRefused([this](xcb_window_t window) { ledger_.forget(window); });
  x_.onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (watched_.contains(change.window)) shapeMayHaveChanged(change);
  });
  x_.onEvent(XCB_CONFIGURE_NOTIFY, [this](const xcb_generic_event_t& event) {
    windowConfigured(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
  });
  x_.afterEvents([this] { readWhatChanged(); });
}

void WindowMover::note(const WindowSnapshot& window) {
  // While a window may still be on its way out of a state, it may not yet look as it will.
  if (released_.contains(window.window)) return;
  if (!ledger_.correctable(window.window, queue_.uptime())) shapes_.note(window);
}

Rect WindowMover::reported(const WindowSnapshot& window) {
  note(window);
  ledger_.seen(window.window, window.frame(), window.shape, queue_.uptime());
  return ledger_.reported(window.window, window.frame(), queue_.uptime());
}

void WindowMover::forget(xcb_window_t window) {
  ledger_.forget(window);
  requests_.forget(window);
  ended_.forget(window);
  shapes_.forget(window);
  released_.erase(window);
  watched_.erase(window);
}

void WindowMover::keepOnly(std::span<const xcb_window_t> open) {
  ledger_.keepOnly(open);
  requests_.keepOnly(open);
  ended_.keepOnly(open);
  shapes_.keepOnly(open);
  keepOpen(released_, open);
}

void WindowMover::move(const WindowSnapshot& snapshot, const Rect& frame) {
  const bool isDropped = held_.letGo() == snapshot.window;
  const Move move{.frame = frame, .repeats = isDropped ? repeatsForDropped : 0};
  watch(snapshot.window, movesAndShapes);
  if (const auto found = released_.find(snapshot.window); found != released_.end()) {
    found->second.move = move;
    askedAround(snapshot, frame);
  } else if (snapshot.states.any()) {
    release(snapshot, move);
  } else {
    place(snapshot, move, snapshot.shape);
  }
}

/// The window will have this frame, but show others on its way there.
void WindowMover::askedAround(const WindowSnapshot& window, const Rect& frame) {
  ledger_.asked(window.window,
                {.frame = frame, .shape = window.shape, .isDirect = false, .isCorrectable = false},
                queue_.uptime());
}

/// The window is moved only once it is out of its states. What it is then, only the window manager knows: the
/// frame that it has beneath them, to be brought back by `restore`, and the decoration that the request for
/// the new one must count on.
void WindowMover::release(const WindowSnapshot& snapshot, const Move& move) {
  requests_.giveUp(snapshot.window);
  ended_.ended(snapshot.window, {.states = snapshot.states, .frame = reported(snapshot)});
  requestRelease(x_, snapshot);
  x_.flush();
  released_.insert_or_assign(
      snapshot.window, Released{move, snapshot.client, snapshot.shape, queue_.uptime() + releasePatience});
  askedAround(snapshot, move.frame);
  lookLater(snapshot.window);
}

bool WindowMover::Released::isOut(const WindowSnapshot& window) const {
  return !window.states.any() &&
         (window.client.width != client.width || window.client.height != client.height);
}

void WindowMover::placeReleased(const WindowSnapshot& window, const Released& released) {
  if (!window.states.any()) ended_.wentTo(window.window, window.client);
  // A window manager that took long may have ended that.
  watch(window.window, movesAndShapes);
  FrameShape shape = window.shape;
  // A client that draws its own shadow has yet to draw it again.
  if (shape.shadow == released.shape.shadow) shape.shadow = shapes_.of(window.window, shape).shadow;
  place(window, released.move, shape);
}

void WindowMover::place(const WindowSnapshot& window, const Move& move, const FrameShape& shape) {
  const auto place = TilePlace::of(move.frame, move.before.value_or(window.frame()), displays_.current());
  const Size least = shape.frameSizeOf(window.limits.least);
  const Rect expected =
      place.frame({std::max(move.frame.width, least.width), std::max(move.frame.height, least.height)});
  if (expected == window.frame() && place.reported(expected) != move.frame) {
    return ledger_.forget(window.window);  // it refuses to shrink in place
  }
  const bool isDirect = move.repeats == 0 && shape == window.shape;
  const MoveLedger::Request request{.frame = move.frame,
                                    .shape = shape,
                                    .repeats = move.repeats,
                                    .oldShape = window.shape,
                                    .place = place,
                                    .expected = expected,
                                    .isDirect = isDirect};
  move.before ? ledger_.corrected(window.window, request, queue_.uptime())
              : ledger_.asked(window.window, request, queue_.uptime());
  requests_.ask(window, shape, expected, move.repeats > 0);
  // The shape was read before its changes were listened to, so one in between would go unheard.
  changed_.insert(window.window);
  reading_.need();
}

void WindowMover::restore(const WindowSnapshot& snapshot, const Rect& frame) {
  const auto ended = ended_.take(snapshot.window, frame);
  const bool isOnItsWay = released_.contains(snapshot.window);
  if (!ended || (!isOnItsWay && ended->isTile(snapshot.shape))) {
    move(snapshot, frame);
    return ended_.forget(snapshot.window);  // nothing will be restored to what it leaves just now
  }
  released_.erase(snapshot.window);
  watch(snapshot.window, movesAndShapes);
  // It may have been put into some state again meanwhile.
  if (ended->normal || snapshot.states != ended->states) requestRelease(x_, snapshot);
  if (ended->normal) {
    // Of a window that has only just left its states, the decoration may not be told yet.
    const FrameShape shape = shapes_.of(snapshot.window, snapshot.shape);
    requests_.ask(snapshot, shape, shape.frameOfClient(*ended->normal), false);
  }
  requests_.giveUp(snapshot.window);
  requestStates(x_, snapshot.window, ended->states);
  x_.flush();
  askedAround(snapshot, frame);
}

void WindowMover::watch(xcb_window_t window, std::uint32_t eventMask) {
  watched_.insert(window);
  if (eventMask == XCB_EVENT_MASK_NO_EVENT) watched_.erase(window);
  x_.masks().select(this, window, eventMask);
}

}  // namespace tilwin::x11
