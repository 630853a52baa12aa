#include "platform/x11/windows/X11WindowProvider.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/x11/windows/WindowAtPoint.h"
#include "platform/x11/windows/WindowRequests.h"
#include "platform/x11/wire/ClientList.h"
#include "platform/x11/wire/Property.h"

namespace tilwin::x11 {

namespace {

constexpr MainQueue::Seconds atOnce{0};
/// A window that was just dropped may be moved again by its window manager and by its own program.
constexpr int repeatsForDropped = 3;
constexpr std::uint32_t moves = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
constexpr std::array shapeProperties{Atom::netFrameExtents, Atom::gtkFrameExtents, Atom::netWmState};

}  // namespace

X11WindowProvider::X11WindowProvider(X11Connection& x, X11Displays& displays, HeldWindow& held,
                                     MainQueue& queue)
    : x_(x), queue_(queue), displays_(displays), held_(held), closing_(queue, atOnce, [this] {
        forgetClosedWindows();
      }) {
  listenToEvents();
  noteActiveWindow();
}

void X11WindowProvider::noteActiveWindow() {
  activeWindow_ =
      PropertyRequest(x_.get(), x_.root(), x_.atom(Atom::netActiveWindow)).number().value_or(XCB_WINDOW_NONE);
  focusHistory_.note(activeWindow_);
}

void X11WindowProvider::listenToEvents() {
  x_.onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    propertyChanged(reinterpret_cast<const xcb_property_notify_event_t&>(event));
  });
  x_.onEvent(XCB_CONFIGURE_NOTIFY, [this](const xcb_generic_event_t& event) {
    windowConfigured(reinterpret_cast<const xcb_configure_notify_event_t&>(event).window);
  });
  x_.onEvent(XCB_DESTROY_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto window = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
    ids_.forget(window);
    ledger_.forget(window);
    focusHistory_.forget(window);
    watched_.erase(window);
  });
}

std::vector<DisplayInfo> X11WindowProvider::displays() { return displays_.current(); }

std::optional<WindowInfo> X11WindowProvider::focusedWindow() {
  closing_.doNow();
  auto snapshot = readActiveWindow(x_, activeWindow_);
  if (!snapshot) return std::nullopt;
  activeWindow_ = snapshot->window;
  if (snapshot->furniture || isOwn(*snapshot)) return std::nullopt;
  lastSeen_ = {std::move(*snapshot), x_.generation()};
  return infoFor(lastSeen_->snapshot, 0);
}

std::optional<WindowInfo> X11WindowProvider::lastFocusedWindow() {
  if (auto focused = focusedWindow()) return focused;
  const auto before = readWindows(x_, onThisWorkspace(x_, focusHistory_.latestFirst()));
  const auto found = std::ranges::find_if(before, [](const WindowSnapshot& snapshot) {
    return !snapshot.furniture && !snapshot.hidden && !isOwn(snapshot);
  });
  return found == before.end() ? std::nullopt : std::optional(infoFor(*found, 0));
}

std::vector<WindowInfo> X11WindowProvider::allWindows() {
  const auto snapshots = readWindows(x_, managedWindowsFromTheTop(x_));
  // The window manager may still list a window that was just closed.
  std::vector<xcb_window_t> open;
  std::ranges::transform(snapshots, std::back_inserter(open), &WindowSnapshot::window);
  ids_.keepOnly(open);
  std::vector<WindowInfo> result;
  for (const auto& snapshot : snapshots) {
    if (!snapshot.standard || isOwn(snapshot)) continue;
    result.push_back(infoFor(snapshot, static_cast<std::int64_t>(result.size())));
  }
  return result;
}

bool X11WindowProvider::applyFrame(std::int64_t id, const Rect& frame) {
  const auto window = ids_.windowOf(id);
  if (!window) return false;
  const auto snapshot = freshSnapshot(*window);
  if (!snapshot) return false;
  requestRelease(x_, *snapshot);
  move(*snapshot, frame);
  return true;
}

std::optional<Rect> X11WindowProvider::frame(std::int64_t of) {
  const auto window = ids_.windowOf(of);
  return window ? held_.frame(*window) : std::nullopt;
}

std::optional<WindowInfo> X11WindowProvider::window(Point at) {
  closing_.doNow();
  const auto under = managedWindowAt(x_, at);
  held_.letGo();
  if (!under) return std::nullopt;
  const auto read = readWindows(x_, std::span(&*under, 1));
  if (read.empty() || read.front().furniture || isOwn(read.front())) return std::nullopt;
  auto info = infoFor(read.front(), 0);
  info.frame = read.front().frame();
  return info;
}

std::optional<WindowSnapshot> X11WindowProvider::freshSnapshot(xcb_window_t window) const {
  if (lastSeen_ && lastSeen_->snapshot.window == window && lastSeen_->generation == x_.generation()) {
    return lastSeen_->snapshot;
  }
  auto read = readWindows(x_, std::span(&window, 1));
  return read.empty() ? std::nullopt : std::optional(std::move(read.front()));
}

void X11WindowProvider::move(const WindowSnapshot& snapshot, const Rect& frame) {
  watch(snapshot.window, moves | XCB_EVENT_MASK_PROPERTY_CHANGE);
  requestFrame(x_, snapshot, frame);
  x_.flush();
  const bool dropped = held_.letGo() == snapshot.window;
  const int repeats = dropped ? repeatsForDropped : 0;
  ledger_.asked(snapshot.window, {frame, snapshot.shape, repeats}, queue_.uptime());
  lastSeen_.reset();
}

void X11WindowProvider::propertyChanged(const xcb_property_notify_event_t& event) {
  const bool onRoot = event.window == x_.root();
  if (onRoot && event.atom == x_.atom(Atom::netActiveWindow)) {
    noteActiveWindow();
  } else if (onRoot && event.atom == x_.atom(Atom::netClientList)) {
    closing_.need();
  } else if (watched_.contains(event.window)) {
    shapeMayHaveChanged(event);
  }
}

void X11WindowProvider::shapeMayHaveChanged(const xcb_property_notify_event_t& event) {
  // Toolkits change properties with every key typed. Once no correction is due, do not wake up for that.
  if (!ledger_.correctable(event.window, queue_.uptime())) return watch(event.window, moves);
  const bool tells =
      std::ranges::any_of(shapeProperties, [&](Atom property) { return x_.atom(property) == event.atom; });
  if (tells) correctShape(event.window);
}

void X11WindowProvider::windowConfigured(xcb_window_t window) {
  if (!watched_.contains(window)) return;
  if (!ledger_.configured(window, queue_.uptime())) return watch(window, XCB_EVENT_MASK_NO_EVENT);
  if (ledger_.mayRepeat(window)) insist(window);
}

/// Sends the request again if the window is at another position. While a window is dragged, its window
/// manager or its own program moves it, and their last move may arrive after our request.
void X11WindowProvider::insist(xcb_window_t window) {
  const auto read = readWindows(x_, std::span(&window, 1));
  if (read.empty()) return;
  const auto request = ledger_.contested(window, read.front().frame(), queue_.uptime());
  if (!request) return;
  requestFrame(x_, read.front(), request->frame);
  x_.flush();
}

/// Sends the request again with the window's new shape. The first one was computed with the old decoration
/// and shadow; they change when the window leaves the maximised or full-screen state, which takes the window
/// manager and the client some time.
void X11WindowProvider::correctShape(xcb_window_t window) {
  const auto request = ledger_.correctable(window, queue_.uptime());
  if (!request) return;
  const auto read = readWindows(x_, std::span(&window, 1));
  if (read.empty()) return;
  const auto& snapshot = read.front();
  if (snapshot.maximized || snapshot.fullScreen || snapshot.shape == request->shape) return;
  move(snapshot, request->frame);
}

void X11WindowProvider::forgetClosedWindows() {
  const auto open = managedWindows(x_);
  ids_.keepOnly(open);
  focusHistory_.keepOnly(open);
}

WindowInfo X11WindowProvider::infoFor(const WindowSnapshot& snapshot, std::int64_t zOrder) {
  return {.id = ids_.idOf(snapshot.window, snapshot.process),
          .bundleID = snapshot.application,
          .appName = desktopEntries_.nameOf(snapshot.application, snapshot.windowClass),
          .title = snapshot.title,
          .frame = ledger_.reported(snapshot.window, snapshot.frame(), queue_.uptime()),
          .isMinimized = snapshot.hidden,
          .zOrder = zOrder};
}

void X11WindowProvider::watch(xcb_window_t window, std::uint32_t eventMask) {
  if (eventMask == XCB_EVENT_MASK_NO_EVENT) {
    watched_.erase(window);
  } else {
    watched_.insert(window);
  }
  xcb_change_window_attributes(x_.get(), window, XCB_CW_EVENT_MASK, &eventMask);
}

}  // namespace tilwin::x11
