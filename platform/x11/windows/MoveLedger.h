#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <optional>
#include <unordered_map>

#include "core/geometry/Rect.h"
#include "platform/x11/windows/Margins.h"

namespace tilwin::x11 {

/// Remembers, for each window, the requested frame and the frame it got from the window manager. The two may
/// differ: terminals round their size to cells, and some windows have a minimum size. As long as the window
/// stays where the window manager put it, the requested frame is the one to report.
///
/// Nothing waits for the window manager. The first change of a window within `answerTime` of the request, and
/// further changes within `burstTime` of that one, count as the answer. Any later change comes from somebody
/// else and removes the entry. Frames are in points; times are those of `MainQueue::uptime`.
class MoveLedger {
public:
  using Seconds = std::chrono::duration<double>;
  static constexpr Seconds answerTime{0.5};
  static constexpr Seconds burstTime{0.1};
  /// How long after a request a change of the window's shape may lead to a corrected request, such as when a
  /// toolkit draws its shadow again after leaving full screen.
  static constexpr Seconds reshapeTime{1.0};

  struct Request {
    Rect frame;
    FrameShape shape;  ///< the shape that the request was computed with
    int repeats = 0;   ///< how often it may be sent again if somebody else moves the window away
  };

  void asked(xcb_window_t window, const Request& request, Seconds at);
  /// Notes that the window was moved or resized, or that its window manager confirmed that it stays. Returns
  /// false if that removed the entry or there was none.
  bool configured(xcb_window_t window, Seconds at);
  void forget(xcb_window_t window) { entries_.erase(window); }

  /// The last request, if a change of shape may still lead to a corrected one; otherwise nothing.
  [[nodiscard]] std::optional<Request> correctable(xcb_window_t window, Seconds at) const;
  /// The request to send again, if it has repeats left and the window is at another position while the answer
  /// still lasts; otherwise nothing. Uses up one repeat.
  [[nodiscard]] std::optional<Request> contested(xcb_window_t window, const Rect& actual, Seconds at);
  /// Whether the last request has repeats left.
  [[nodiscard]] bool mayRepeat(xcb_window_t window) const;
  /// The frame to report for a window whose actual frame is `actual`.
  [[nodiscard]] Rect reported(xcb_window_t window, const Rect& actual, Seconds at);

private:
  struct Entry {
    Request request;
    Seconds at{};
    std::optional<Seconds> answeredAt;
    std::optional<Rect> answer;

    /// Whether a change at this time still counts as the window manager's answer.
    [[nodiscard]] bool isOpen(Seconds now) const;
  };

  std::unordered_map<xcb_window_t, Entry> entries_;
};

}  // namespace tilwin::x11
