#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <optional>
#include <unordered_map>

#include "core/geometry/Rect.h"
#include "platform/x11/windows/Margins.h"

namespace tilwin::x11 {

/// What was asked for each window, and where its manager put it in answer. Terminals round their size to
/// cells and some windows refuse to shrink, so the two differ; while the window still stands where it was
/// put, the frame asked for is the one that counts.
///
/// The answer is known without waiting: what a window first does within `answerTime` of the request, and the
/// rest of that burst, is the manager's answer. Whatever it does later is somebody else's doing and ends the
/// entry.
class MoveLedger {
public:
  using Seconds = std::chrono::duration<double>;
  static constexpr Seconds answerTime{0.5};
  static constexpr Seconds burstTime{0.1};
  /// How long a change of the window's shape (a toolkit drawing its shadow again after leaving full screen)
  /// may still call for a corrected request.
  static constexpr Seconds reshapeTime{1.0};

  struct Request {
    Rect frame;
    FrameShape shape;  ///< the shape that the request was worked out with
    int repeats = 0;   ///< how often it may be made again against somebody who moves the window elsewhere
  };

  void asked(xcb_window_t window, const Request& request, Seconds at);
  /// The window was moved or resized, or its manager said that it stays. False when that ended the entry, or
  /// when there is none.
  bool configured(xcb_window_t window, Seconds at);
  void forget(xcb_window_t window) { entries_.erase(window); }

  /// The last request, while a change of shape may still call for another.
  [[nodiscard]] std::optional<Request> correctable(xcb_window_t window, Seconds at) const;
  /// The request to make once more, when it may be and the window, before the answer was over, turns out to
  /// stand at another place. Each time uses up one of its repeats.
  [[nodiscard]] std::optional<Request> contested(xcb_window_t window, const Rect& actual, Seconds at);
  /// Whether the last request may be made again.
  [[nodiscard]] bool mayRepeat(xcb_window_t window) const;
  /// What to report for a window that now stands at `actual`.
  [[nodiscard]] Rect reported(xcb_window_t window, const Rect& actual, Seconds at);

private:
  struct Entry {
    Request request;
    Seconds at{};
    std::optional<Seconds> answeredAt;
    std::optional<Rect> answer;

    [[nodiscard]] bool isOpen(Seconds now) const;
  };

  std::unordered_map<xcb_window_t, Entry> entries_;
};

}  // namespace tilwin::x11
