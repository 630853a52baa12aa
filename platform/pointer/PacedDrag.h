#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/ports/MainQueue.h"
#include "platform/ports/PointerMonitor.h"

namespace tilwin {

/// Tells of drags at the pace at which they are examined, for an adapter to `PointerMonitor`. A receiver
/// passes over a move that comes within `PointerMonitor::betweenLooks` after the last one, so for that long
/// after each move, none is told. The newest move that comes meanwhile is told when the pause ends.
///
/// A release where nothing was told of the pointer yet is held back until a move may be told. Then the place
/// of release is told as the last move of the drag, and the release directly after it. Otherwise a window
/// that is let go in motion would be judged by a place that is up to `betweenLooks` old. A release where the
/// pointer rested is told at once, and so is one that is still held back when the button goes down again.
///
/// The adapter calls `press`, `move` and `release` for what happens to the left button; handlers are called
/// from inside them and from tasks of the queue. Main thread only.
class PacedDrag {
public:
  using Tell = std::function<void()>;

  /// `tellMove` tells the receivers of a move. `pauseEnded` is called at the end of each pause in which
  /// nothing came that is told now. The queue must outlive this.
  PacedDrag(
      MainQueue& queue, Tell tellMove, Tell pauseEnded = [] {});
  PacedDrag(const PacedDrag&) = delete;
  PacedDrag& operator=(const PacedDrag&) = delete;
  ~PacedDrag() = default;

  void press(Point at, const Tell& tell);
  void move(Point to);
  void release(Point at, Tell tell);

  /// Whether a move would come too soon to be told.
  [[nodiscard]] bool isPausing() const { return isPausing_; }
  /// Where the pointer was when its press or its last move was told; nothing once it is released.
  [[nodiscard]] std::optional<Point> told() const { return told_; }
  /// Where the pointer is for those who are being told something of it, and while a release is held back;
  /// otherwise nothing.
  [[nodiscard]] std::optional<Point> place() const;

private:
  struct Release {
    Point at;
    Tell tell;
  };

  void tellAt(Point place, const Tell& tell);
  void pause();
  void wait(MainQueue::Seconds time);
  void endPause();
  void lookOnceMore();
  void letGo();

  MainQueue& queue_;
  Tell tellMove_;
  Tell pauseEnded_;
  bool isPausing_ = false;
  MainQueue::Seconds pausingSince_{};
  std::optional<Point> told_;
  std::optional<Point> telling_;
  std::optional<Point> later_;  ///< the newest move that came in this pause
  std::optional<Release> held_;
  /// Waiting tasks hold this weakly, so that they do nothing once this is destroyed.
  std::shared_ptr<PacedDrag*> self_;
};

}  // namespace tilwin
