#include "platform/x11/windows/MoveLedger.h"

namespace tilwin::x11 {

namespace {

/// In points; larger than the cells of any terminal.
constexpr double largestStep = 64;
/// A window that has another place for each size it takes is left where it is after so many.
constexpr int mostDisplacements = 3;

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
  const bool isAlone = request.isDirect && !isOpen(window, at);
  entries_[window] = {.request = request, .first = at, .at = at, .isAlone = isAlone};
}

void MoveLedger::corrected(xcb_window_t window, const Request& request, Seconds at) {
  const auto found = entries_.find(window);
  if (found == entries_.end()) return asked(window, request, at);
  const auto first = found->second.first;
  const int corrections = found->second.corrections + 1;
  asked(window, request, at);
  found->second.first = first;
  found->second.corrections = corrections;
}

bool MoveLedger::isOpen(xcb_window_t window, Seconds at) const {
  const auto found = entries_.find(window);
  return found != entries_.end() && !found->second.hasStood && found->second.isOpen(at);
}

void MoveLedger::seen(xcb_window_t window, const Rect& actual, const FrameShape& shape, Seconds at) {
  const auto found = entries_.find(window);
  if (found == entries_.end()) return;
  auto& entry = found->second;
  entry.isReshaped = shape != entry.request.shape && at - entry.first <= reshapeTime;
  if (entry.isReshaped) return;
  const bool isThere = actual == entry.request.expected;
  if (entry.hasStood && !isThere) {
    entries_.erase(found);
  } else if (isThere && entry.isAlone && entry.isOpen(at)) {
    entry.hasStood = true;
  }
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

void MoveLedger::repeated(xcb_window_t window, Seconds at) {
  const auto found = entries_.find(window);
  if (found == entries_.end()) return;
  auto& entry = found->second;
  entry.wasAnswered = entry.isAnswered();
  entry.at = at;
  entry.answeredAt.reset();
}

std::optional<MoveLedger::Request> MoveLedger::correctable(xcb_window_t window, Seconds at) const {
  const auto found = entries_.find(window);
  if (found == entries_.end() || at - found->second.first > reshapeTime ||
      found->second.corrections == mostCorrections) {
    return std::nullopt;
  }
  return found->second.request.isCorrectable ? std::optional(found->second.request) : std::nullopt;
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
  const bool isThere = actual.x == request.expected.x && actual.y == request.expected.y;
  if (isThere || !isOpen(window, at)) return std::nullopt;
  --request.repeats;
  return request;
}

bool MoveLedger::mayBeDisplaced(xcb_window_t window, const Rect& actual) const {
  const auto found = entries_.find(window);
  if (found == entries_.end() || found->second.displacements == mostDisplacements) return false;
  const auto& entry = found->second;
  const Rect& expected = entry.request.expected;
  const bool isLarger = actual.width > expected.width || actual.height > expected.height;
  // openbox moves a window that becomes wider than the screen to the screen's edge, but not if asked twice.
  const bool isElsewhere = !entry.hasStood && (actual.x != expected.x || actual.y != expected.y);
  // One that was slow to shrink has been asked to stand where its old size belongs.
  return isLarger || isElsewhere || entry.displacements > 0;
}

std::optional<MoveLedger::Request> MoveLedger::displaced(xcb_window_t window, const Rect& actual,
                                                         Seconds at) {
  if (!mayBeDisplaced(window, actual) || isOpen(window, at)) return std::nullopt;
  Entry& entry = entries_.at(window);
  const Size taken{actual.width, actual.height};
  const Size fitting = entry.request.place.fitting(taken);
  const Rect wanted = entry.request.place.frame(fitting);
  Request request = entry.request;
  request.expected.x = wanted.x;
  request.expected.y = wanted.y;
  if (fitting != taken) request.expected = wanted;
  const bool isThere = wanted.x == actual.x && wanted.y == actual.y;
  if (!entry.isAnswered() || (isThere && request.expected == entry.request.expected)) return std::nullopt;
  entry = {.request = request, .at = at, .isAlone = false, .displacements = entry.displacements + 1};
  return request;
}

Rect MoveLedger::reported(xcb_window_t window, const Rect& actual, Seconds at) {
  const auto found = entries_.find(window);
  if (found == entries_.end()) return actual;
  auto& entry = found->second;
  if (entry.hasStood || entry.isOpen(at)) return entry.request.frame;
  if (!entry.answer && (entry.isAnswered() || isRounded(entry.request.expected, actual)))
    entry.answer = actual;
  if (entry.answer == actual) return entry.request.place.reported(actual);
  entries_.erase(found);
  return actual;
}

}  // namespace tilwin::x11
