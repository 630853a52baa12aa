#include "platform/x11/MoveLedger.h"

namespace tilwin::x11 {

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

Rect MoveLedger::reported(xcb_window_t window, const Rect& actual, Seconds at) {
  const auto found = entries_.find(window);
  if (found == entries_.end()) return actual;
  auto& entry = found->second;
  if (entry.isOpen(at)) return entry.request.frame;
  if (entry.answeredAt && !entry.answer) entry.answer = actual;
  if (entry.answer == actual) return entry.request.frame;
  entries_.erase(found);
  return actual;
}

}  // namespace tilwin::x11
