#include "platform/x11/windows/MoveLedger.h"

namespace tilwin::x11 {

namespace {

/// In points; larger than the cells of any terminal.
constexpr double largestStep = 64;

/// Whether the window has the requested frame, apart from rounding its size to whole cells. A window manager
/// may send no event for a request that changes nothing after rounding.
bool isRounded(const Rect& asked, const Rect& actual) {
  const double width = asked.width - actual.width;
  const double height = asked.height - actual.height;
  return asked.x == actual.x && asked.y == actual.y && width >= 0 && width < largestStep && height >= 0 &&
         height < largestStep;
}

}  // namespace

bool MoveLedger::Entry::isOpen(Seconds now) const {
  return answeredAt ? now - *answeredAt <= burstTime : now - at <= answerTime;
}

void MoveLedger::asked(xcb_window_t window, const Request& request, Seconds at) {
  entries_[window] = {.request = request, .at = at, .answeredAt = std::nullopt, .answer = std::nullopt};
}

bool MoveLedger::configured(xcb_window_t window, Seconds at) {
  const auto found = entries_.find(window);
  if (found == entries_.end()) return false;
  auto& entry = found->second;
  if (entry.isOpen(at)) {
    if (!entry.answeredAt) entry.answeredAt = at;
    return true;
  }
  entries_.erase(found);
  return false;
}

std::optional<MoveLedger::Request> MoveLedger::correctable(xcb_window_t window, Seconds at) const {
  const auto found = entries_.find(window);
  if (found == entries_.end() || at - found->second.at > reshapeTime) return std::nullopt;
  return found->second.request;
}

bool MoveLedger::mayRepeat(xcb_window_t window) const {
  const auto found = entries_.find(window);
  return found != entries_.end() && found->second.request.repeats > 0;
}

std::optional<MoveLedger::Request> MoveLedger::contested(xcb_window_t window, const Rect& actual,
                                                         Seconds at) {
  if (!mayRepeat(window)) return std::nullopt;
  Entry& entry = entries_.at(window);
  Request& request = entry.request;
  if (!entry.isOpen(at) || (actual.x == request.frame.x && actual.y == request.frame.y)) return std::nullopt;
  --request.repeats;
  return request;
}

Rect MoveLedger::reported(xcb_window_t window, const Rect& actual, Seconds at) {
  const auto found = entries_.find(window);
  if (found == entries_.end()) return actual;
  auto& entry = found->second;
  if (entry.isOpen(at)) return entry.request.frame;
  if (!entry.answer && (entry.answeredAt || isRounded(entry.request.frame, actual))) entry.answer = actual;
  if (entry.answer == actual) return entry.request.frame;
  entries_.erase(found);
  return actual;
}

}  // namespace tilwin::x11
