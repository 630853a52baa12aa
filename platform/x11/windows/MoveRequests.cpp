#include "platform/x11/windows/MoveRequests.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

#include "platform/x11/windows/OpenWindows.h"
#include "platform/x11/windows/WindowRequests.h"
#include "platform/x11/wire/RunningManager.h"

namespace tilwin::x11 {

namespace {

/// After so many the message is no longer sent. One alone may have been late.
constexpr int mostIgnoredMessages = 2;

constexpr MainQueue::Seconds betweenLooks{0.05};
/// How often the pointer is nudged until a window that is pulled counts as stuck.
constexpr int mostNudges = 10;

Size sizeOf(const Rect& rect) { return {rect.width, rect.height}; }

/// As `WindowRequests` sends it.
Rect inWholePoints(const Rect& frame) {
  return {std::round(frame.x), std::round(frame.y), std::round(frame.width), std::round(frame.height)};
}

Standing standingOf(const WindowSnapshot& window, const Rect& wanted) {
  const Rect asked = window.shape.requestForFrame(wanted);
  return {.frame = window.frame(),
          .shape = window.shape,
          .mayKeepSize = window.limits.mayKeep(sizeOf(window.client), sizeOf(asked))};
}

}  // namespace

MoveRequests::MoveRequests(X11Connection& x, MainQueue& queue)
    : x_(x), queue_(queue), pulled_(x), manager_(announcedManager(x_)), judging_(queue, betweenLooks, [this] {
        judgeAll();
      }) {
  x_.onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == x_.root() && change.atom == x_.atom(Atom::netSupportingWmCheck)) mayBeNew_ = true;
  });
  // The next manager may announce itself by a window with the same number.
  x_.onEvent(XCB_DESTROY_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto closed = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
    if (closed == manager_) manager_ = XCB_WINDOW_NONE;
  });
  x_.onEvent(XCB_CONFIGURE_NOTIFY, [this](const xcb_generic_event_t& event) {
    configured(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
  });
}

void MoveRequests::ask(const WindowSnapshot& window, const FrameShape& shape, const Rect& frame,
                       bool isDropped) {
  reviewHabits();
  const auto now = queue_.uptime();
  times_.push_back({.asked = now});
  if (times_.size() > mostTimes) times_.pop_front();
  begin({.wanted = inWholePoints(frame), .way = habits_.firstWay(), .firstAt = now, .isDropped = isDropped},
        window, shape);
}

bool MoveRequests::isRefused(xcb_window_t window, const Rect& frame) const {
  const auto found = refused_.find(window);
  return found != refused_.end() && found->second == frame;
}

void MoveRequests::forget(xcb_window_t window) {
  attempts_.erase(window);
  refused_.erase(window);
}

void MoveRequests::keepOnly(std::span<const xcb_window_t> open) {
  keepOpen(refused_, open);
  keepOpen(attempts_, open);
}

void MoveRequests::configured(const xcb_configure_notify_event_t& event) {
  const auto found = attempts_.find(event.window);
  if (found == attempts_.end()) return;
  auto& attempt = found->second;
  const Size size{static_cast<double>(event.width), static_cast<double>(event.height)};
  if (!attempt.answeredAt) {
    attempt.answeredAt = queue_.uptime();
    noteAnswer(attempt);
  }
  attempt.isResized = attempt.isResized || size != attempt.clientBefore;
}

void MoveRequests::noteAnswer(const MoveAttempt& attempt) {
  const auto asked = std::ranges::find(times_, attempt.firstAt, &MoveTimes::asked);
  if (asked != times_.end() && !asked->answered) asked->answered = attempt.answeredAt;
}

const ManagerHabits& MoveRequests::habits() {
  reviewHabits();
  return habits_;
}

void MoveRequests::reviewHabits() {
  if (std::exchange(mayBeNew_, false)) {
    if (const auto before = std::exchange(manager_, announcedManager(x_)); before != manager_) {
      habits_ = {};
      ignoredMessages_ = 0;
      isRefusalLogged_ = false;
      refused_.clear();
    }
  }
  habits_.takesMessage = x_.managerSupports(Atom::netMoveResizeWindow);
  habits_.maximizes = x_.managerSupports(Atom::netWmStateMaximizedVert);
  habits_.movesByHand = x_.managerSupports(Atom::netWmMoveResize);
}

void MoveRequests::begin(MoveAttempt attempt, const WindowSnapshot& window, const FrameShape& shape) {
  attempt.before = window.frame();
  attempt.clientBefore = sizeOf(window.client);
  attempt.at = queue_.uptime();
  attempt.answeredAt.reset();
  attempt.isResized = false;
  send(attempt, window, shape);
  attempts_[window.window] = attempt;
  judging_.need();
}

void MoveRequests::repeat(const MoveAttempt& attempt, const WindowSnapshot& window) {
  if (onRepeated_) onRepeated_(window.window);
  begin(attempt, window, window.shape);
}

void MoveRequests::send(const MoveAttempt& attempt, const WindowSnapshot& window,
                        const FrameShape& shape) const {
  if (attempt.way == MoveWay::pull) return;  // what is asked for comes after
  Rect frame = attempt.wanted;
  if (habits_.placesClient) {
    const Point corner = clientCorner(shape);
    frame.x += corner.x;
    frame.y += corner.y;
  }
  if (attempt.way == MoveWay::configure) {
    // Without a window manager nobody would be asked: the window would move.
    if (!windowManagerRuns(x_)) return;
    configureFrame(x_, window, shape, frame);
  } else {
    if (attempt.way == MoveWay::untile) requestUntiling(x_, window.window);
    requestFrame(x_, window, shape, frame);
  }
  x_.flush();
}

void MoveRequests::judgeAll() {
  reviewHabits();
  const auto attempts = std::exchange(attempts_, {});
  std::vector<xcb_window_t> asked;
  std::ranges::transform(attempts, std::back_inserter(asked), [](const auto& entry) { return entry.first; });
  for (const auto& window : readWindows(x_, asked)) follow(attempts.at(window.window), window);
  // It may have been closed meanwhile.
  if (!attempts_.contains(pulled_.held())) pulled_.end();
}

void MoveRequests::follow(MoveAttempt attempt, const WindowSnapshot& window) {
  if (pulled_.isHeld(window.window)) return pull(attempt, window);
  using Verdict = MoveAttempt::Verdict;
  const auto verdict = attempt.judge(standingOf(window, attempt.wanted), habits_, queue_.uptime());
  if (verdict == Verdict::open) {
    attempts_[window.window] = attempt;
    judging_.need();
  } else if (verdict == Verdict::settled) {
    learnFrom(attempt, window);
  } else if (verdict == Verdict::misplaced) {
    habits_.placesClient = !habits_.placesClient;
    attempt.isCorrected = true;
    repeat(attempt, window);
  } else if (verdict == Verdict::moved) {
    attempt.isDropped = false;
    repeat(attempt, window);
  } else if (verdict == Verdict::refused || (verdict == Verdict::unheard && window.states.maximized())) {
    // metacity says nothing of some windows that it has tiled.
    insist(attempt, window);
  }
}

void MoveRequests::learnFrom(const MoveAttempt& attempt, const WindowSnapshot& window) {
  const bool isMoved = window.frame() != attempt.before;
  habits_.obeysMessage = habits_.obeysMessage || (isMoved && attempt.way == MoveWay::message);
  if (window.frame() != attempt.wanted) return;
  refused_.erase(window.window);
  if (attempt.way == MoveWay::message) ignoredMessages_ = 0;
  habits_.tilesItself = habits_.tilesItself || attempt.way == MoveWay::untile;
  if (attempt.way == MoveWay::configure) ++ignoredMessages_;
  habits_.ignoresMessage = ignoredMessages_ >= mostIgnoredMessages;
}

void MoveRequests::insist(MoveAttempt attempt, const WindowSnapshot& window) {
  const auto way = habits_.wayAfter(attempt.way, window.states.maximized());
  if (way == MoveWay::pull && pulled_.held() != XCB_WINDOW_NONE) {
    attempts_[window.window] = attempt;  // one at a time
    return judging_.need();
  }
  if (!way || (*way == MoveWay::pull && !pulled_.begin(window.window))) return refuse(window);
  attempt.way = *way;
  nudges_ = 0;
  repeat(attempt, window);
}

void MoveRequests::pull(MoveAttempt attempt, const WindowSnapshot& window) {
  if (window.states.maximized() && nudges_ < mostNudges) {
    ++nudges_;
    pulled_.nudge();
    attempts_[window.window] = attempt;
    return judging_.need();
  }
  pulled_.end();
  if (window.states.maximized()) return refuse(window);
  habits_.tilesItself = true;
  attempt.way = MoveWay::message;
  repeat(attempt, window);
}

void MoveRequests::refuse(const WindowSnapshot& window) {
  refused_.insert_or_assign(window.window, window.frame());
  if (!std::exchange(isRefusalLogged_, true)) {
    x_.log().write("Tilwin: the window manager does not let the window of " + window.application +
                   " be moved; some keep the windows that they tile themselves");
  }
  if (onRefused_) onRefused_(window.window);
}

}  // namespace tilwin::x11
