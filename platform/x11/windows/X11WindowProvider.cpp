#include "platform/x11/windows/X11WindowProvider.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/x11/windows/WindowAtPoint.h"
#include "platform/x11/wire/ClientList.h"
#include "platform/x11/wire/Property.h"

namespace tilwin::x11 {

namespace {

constexpr MainQueue::Seconds atOnce{0};

}  // namespace

X11WindowProvider::X11WindowProvider(X11Connection& x, X11Displays& displays, HeldWindow& held,
                                     MainQueue& queue)
    : x_(x),
      displays_(displays),
      held_(held),
      mover_(x, displays, held, queue),
      unlisted_(x),
      closing_(queue, atOnce, [this] { forgetClosedWindows(managedWindows(x_)); }) {
  listenToEvents();
  noteActiveWindow();
}

void X11WindowProvider::noteActiveWindow() {
  activeWindow_ = readActiveNumber(x_);
  focusHistory_.note(activeWindow_);
  if (activeWindow_ == XCB_WINDOW_NONE) return;
  for (const auto& window : readWindows(x_, std::span(&activeWindow_, 1))) mover_.note(window);
}

void X11WindowProvider::listenToEvents() {
  x_.onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    propertyChanged(reinterpret_cast<const xcb_property_notify_event_t&>(event));
  });
  x_.onEvent(XCB_DESTROY_NOTIFY, [this](const xcb_generic_event_t& event) {
    forget(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
  });
  x_.afterEvents([this] {
    if (std::exchange(isActiveStale_, false)) noteActiveWindow();
  });
}

std::vector<DisplayInfo> X11WindowProvider::displays() { return displays_.current(); }

std::optional<WindowInfo> X11WindowProvider::focusedWindow() {
  closing_.doNow();
  displays_.askAhead();
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
  const auto found = std::ranges::find_if(before, [this](const WindowSnapshot& snapshot) {
    return !snapshot.furniture && !snapshot.hidden && !isOwn(snapshot) &&
           !unlisted_.contains(snapshot.window);
  });
  return found == before.end() ? std::nullopt : std::optional(infoFor(*found, 0));
}

std::vector<WindowInfo> X11WindowProvider::allWindows() {
  const auto snapshots = readWindows(x_, managedWindowsFromTheTop(x_));
  // The window manager may still list a window that was just closed.
  std::vector<xcb_window_t> open;
  std::ranges::transform(snapshots, std::back_inserter(open), &WindowSnapshot::window);
  forgetClosedWindows(std::move(open));
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
  lastSeen_.reset();
  mover_.move(*snapshot, frame);
  return true;
}

bool X11WindowProvider::applyRestore(std::int64_t id, const Rect& frame) {
  const auto window = ids_.windowOf(id);
  if (!window) return false;
  const auto snapshot = freshSnapshot(*window);
  if (!snapshot) return false;
  lastSeen_.reset();
  mover_.restore(*snapshot, frame);
  return true;
}

std::optional<Rect> X11WindowProvider::frame(std::int64_t of) {
  const auto window = ids_.windowOf(of);
  return window ? held_.frame(*window) : std::nullopt;
}

std::optional<WindowInfo> X11WindowProvider::window(Point at) {
  closing_.doNow();
  displays_.askAhead();
  const auto under = managedWindowAt(x_, at);
  held_.letGo();
  if (!under) return std::nullopt;
  const auto read = readWindows(x_, std::span(&*under, 1));
  if (read.empty() || read.front().furniture || isOwn(read.front())) return std::nullopt;
  const Rect frame = read.front().frame();
  if (mover_.isRefused(*under, frame)) return std::nullopt;
  auto info = infoFor(read.front(), 0);
  info.frame = frame;
  return info;
}

std::optional<WindowSnapshot> X11WindowProvider::freshSnapshot(xcb_window_t window) const {
  if (lastSeen_ && lastSeen_->snapshot.window == window && lastSeen_->generation == x_.generation()) {
    return lastSeen_->snapshot;
  }
  auto read = readWindows(x_, std::span(&window, 1));
  return read.empty() ? std::nullopt : std::optional(std::move(read.front()));
}

void X11WindowProvider::propertyChanged(const xcb_property_notify_event_t& event) {
  if (event.window != x_.root()) return;
  if (event.atom == x_.atom(Atom::netActiveWindow)) {
    isActiveStale_ = true;
  } else if (event.atom == x_.atom(Atom::netClientList)) {
    closing_.need();
  }
}

/// `open` are those that the window manager lists. Others are closed only if they have gone from the server
/// too: while window managers change places, none lists any.
void X11WindowProvider::forgetClosedWindows(std::vector<xcb_window_t> open) {
  auto unlisted = ids_.windows();
  std::ranges::copy(focusHistory_.latestFirst(), std::back_inserter(unlisted));
  std::erase_if(unlisted, [&](xcb_window_t window) { return std::ranges::find(open, window) != open.end(); });
  std::ranges::copy(unlisted_.openOf(unlisted), std::back_inserter(open));
  ids_.keepOnly(open);
  mover_.keepOnly(open);
  focusHistory_.keepOnly(open);
}

void X11WindowProvider::forget(xcb_window_t window) {
  ids_.forget(window);
  mover_.forget(window);
  focusHistory_.forget(window);
  unlisted_.forget(window);
}

WindowInfo X11WindowProvider::infoFor(const WindowSnapshot& snapshot, std::int64_t zOrder) {
  return {.id = ids_.idOf(snapshot.window, snapshot.process),
          .bundleID = snapshot.application,
          .appName = desktopEntries_.nameOf(snapshot.application, snapshot.windowClass),
          .title = snapshot.title,
          .frame = mover_.reported(snapshot),
          .isMinimized = snapshot.hidden,
          .zOrder = zOrder};
}

}  // namespace tilwin::x11
