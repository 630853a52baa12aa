#include "platform/pointer/PacedDrag.h"

#include <chrono>
#include <utility>

namespace tilwin {
namespace {

/// A receiver passes over a move that comes exactly at the end of the pause; and differences of
/// floating-point times are not exact.
constexpr MainQueue::Seconds shortestPause = PointerMonitor::betweenLooks + std::chrono::microseconds(1);
/// By how much a pause is prolonged that a timer ended too early.
constexpr std::chrono::milliseconds prolongation{1};

}  // namespace

PacedDrag::PacedDrag(MainQueue& queue, Tell tellMove, Tell pauseEnded)
    : queue_(queue),
      tellMove_(std::move(tellMove)),
      pauseEnded_(std::move(pauseEnded)),
      self_(std::make_shared<PacedDrag*>(this)) {}

void PacedDrag::press(Point at, const Tell& tell) {
  letGo();
  later_.reset();
  told_ = at;
  tellAt(at, tell);
}

void PacedDrag::move(Point to) {
  if (isPausing_) {
    later_ = to;
    return;
  }
  later_.reset();
  told_ = to;
  tellAt(to, tellMove_);
  pause();
}

void PacedDrag::release(Point at, Tell tell) {
  letGo();
  later_.reset();
  held_ = Release{at, std::move(tell)};
  const auto told = std::exchange(told_, std::nullopt);
  if (!told || told == at) return letGo();
  if (!isPausing_) lookOnceMore();
}

std::optional<Point> PacedDrag::place() const {
  if (telling_) return telling_;
  return held_ ? std::optional(held_->at) : std::nullopt;
}

void PacedDrag::tellAt(Point place, const Tell& tell) {
  const auto outer = std::exchange(telling_, place);
  tell();
  telling_ = outer;
}

/// Begins after the receivers have been told, because a receiver that counts from its own look must not pass
/// over the next move.
void PacedDrag::pause() {
  isPausing_ = true;
  pausingSince_ = queue_.uptime();
  wait(PointerMonitor::betweenLooks);
}

void PacedDrag::wait(MainQueue::Seconds time) {
  queue_.postAfter(time, [weak = std::weak_ptr(self_)] {
    if (const auto self = weak.lock()) (*self)->endPause();
  });
}

void PacedDrag::endPause() {
  if (queue_.uptime() - pausingSince_ < shortestPause) return wait(prolongation);
  isPausing_ = false;
  if (held_) return lookOnceMore();
  if (const auto later = std::exchange(later_, std::nullopt)) return move(*later);
  pauseEnded_();
}

void PacedDrag::lookOnceMore() {
  move(held_->at);
  told_.reset();
  letGo();
}

void PacedDrag::letGo() {
  if (const auto release = std::exchange(held_, std::nullopt)) tellAt(release->at, release->tell);
}

}  // namespace tilwin
