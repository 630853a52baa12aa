#include "platform/x11/wire/FloodGate.h"

#include <algorithm>
#include <thread>

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {
namespace {

/// So few may come at any moment.
constexpr int fewest = 2;
constexpr MainQueue::Seconds trial{0.001};

}  // namespace

FloodGate::FloodGate(X11Connection& x, MainQueue& queue)
    : x_(x), queue_(queue), reading_(queue, pause, [this] { readAgain(); }) {
  x_.afterEvents([this] { closeWhereFlooded(); });
}

void FloodGate::closeWhereFlooded() {
  for (const auto& [window, count] : x_.eventCounts()) {
    if (count <= limit_) continue;
    isFlooded_ = true;
    x_.masks().mute(window);
    reading_.need();
  }
  const auto now = queue_.uptime();
  if (now - since_ <= pause) return;
  since_ = now;
  x_.resetEventCounts();
}

void FloodGate::readAgain() {
  const auto windows = x_.masks().muted();
  if (queue_.uptime() >= nextTrial_) {
    const bool goesOn = tryListening(windows);
    distance_ = goesOn ? std::min(2 * distance_, longestDistance) : pause;
    nextTrial_ = queue_.uptime() + distance_;
    if (!goesOn) x_.masks().unmute();
    x_.flush();
  }
  for (const auto window : windows) x_.pretendChanged(window);
  if (!x_.masks().muted().empty()) reading_.need();
}

/// Nobody may wait for a reply while a flood is heard: the reply stands behind all of it, and a client can
/// write events as fast as they are read. The first round trip here ends before the flood is heard; without
/// it the server, busy with the flood, might take both masks at once.
bool FloodGate::tryListening(const std::set<xcb_window_t>& windows) {
  x_.resetEventCounts();
  x_.masks().unmute();
  waitForServer();
  const auto begun = queue_.uptime();
  std::this_thread::sleep_for(trial);
  for (const auto window : windows) x_.masks().mute(window);
  waitForServer();
  limit_ = fewest + static_cast<int>(most * ((queue_.uptime() - begun) / pause));
  isFlooded_ = false;
  x_.dispatchQueued();
  limit_ = most;
  return isFlooded_;
}

void FloodGate::waitForServer() {
  (void)Pending<xcb_get_input_focus_reply>(x_.get(), xcb_get_input_focus(x_.get())).collect();
}

}  // namespace tilwin::x11
