#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <optional>
#include <span>
#include <unordered_map>

#include "core/geometry/Rect.h"
#include "core/geometry/TilePlace.h"
#include "platform/x11/windows/Margins.h"
#include "platform/x11/windows/OpenWindows.h"

namespace tilwin::x11 {

/// Remembers, for each window, the requested frame and the frame it got from the window manager. The two may
/// differ: terminals round their size to cells, and some windows have a minimum size. As long as the window
/// stays where the window manager put it, the requested frame is the one to report.
///
/// Nothing waits for the window manager. The first change of a window within `answerTime` of the request, and
/// further changes within `burstTime` of that one, count as the answer, but no longer once the window has
/// stood exactly where it was expected to. Any later change comes from somebody else and removes the entry.
/// Frames are in points; times are those of `MainQueue::uptime`.
class MoveLedger {
public:
  using Seconds = std::chrono::duration<double>;
  static constexpr Seconds answerTime{0.5};
  static constexpr Seconds burstTime{0.1};
  /// How long after a request a change of the window's shape may lead to a corrected request, such as when a
  /// toolkit draws its shadow again after leaving full screen.
  static constexpr Seconds reshapeTime{1.0};
  /// How often that may lead to one, lest a client that changes its shadow all the time be moved all the
  /// time.
  static constexpr int mostCorrections = 6;

  struct Request {
    Rect frame;
    FrameShape shape;             ///< the shape that the request was computed with
    int repeats = 0;              ///< how often it may be sent again if somebody else moves the window away
    FrameShape oldShape = shape;  ///< the one that the window had when it was sent
    TilePlace place{frame, frame, frame};
    /// What the window manager was asked for: `frame`, or what is known to become of it.
    Rect expected = frame;
    /// Whether the window is to show nothing else on its way there, as it would if it first left the
    /// maximised state.
    bool isDirect = true;
    /// Whether a change of the window's shape may lead to a corrected request.
    bool isCorrectable = true;
  };

  void asked(xcb_window_t window, const Request& request, Seconds at);
  /// The last request was sent again, computed with another shape. Later corrections still count from the
  /// request that was made first.
  void corrected(xcb_window_t window, const Request& request, Seconds at);
  /// Notes that the window was moved or resized, or that its window manager confirmed that it stays. Returns
  /// false if that removed the entry or there was none.
  bool configured(xcb_window_t window, Seconds at);
  /// Notes that the last request was made again, in some way: an answer may now still come. It need not, if
  /// the window already stands as near as it can.
  void repeated(xcb_window_t window, Seconds at);
  void forget(xcb_window_t window) { entries_.erase(window); }
  /// Forgets all other windows: the server may give their numbers to new ones.
  void keepOnly(std::span<const xcb_window_t> open) { keepOpen(entries_, open); }
  /// Notes where the window was seen to stand, and with which shape.
  void seen(xcb_window_t window, const Rect& actual, const FrameShape& shape, Seconds at);

  /// The last request, if a change of shape may still lead to a corrected one; otherwise nothing.
  [[nodiscard]] std::optional<Request> correctable(xcb_window_t window, Seconds at) const;
  /// The request to send again, if it has repeats left and the window is at another position while the answer
  /// still lasts; otherwise nothing. Uses up one repeat.
  [[nodiscard]] std::optional<Request> contested(xcb_window_t window, const Rect& actual, Seconds at);
  /// The request to send if the answer is over and the size the window has taken, larger than expected,
  /// belongs elsewhere or has no room on the display; otherwise nothing. What it expects is the window at
  /// that place, and of a size that fits. Also the same request once more, if the window is elsewhere.
  [[nodiscard]] std::optional<Request> displaced(xcb_window_t window, const Rect& actual, Seconds at);
  /// Whether there may be such a request once the answer is over.
  [[nodiscard]] bool mayBeDisplaced(xcb_window_t window, const Rect& actual) const;
  /// Whether the answer to the last request may still be coming.
  [[nodiscard]] bool isOpen(xcb_window_t window, Seconds at) const;
  /// Whether the last request has repeats left.
  [[nodiscard]] bool mayRepeat(xcb_window_t window) const;
  /// The frame to report for a window whose actual frame is `actual`, to be called after `seen`.
  [[nodiscard]] Rect reported(xcb_window_t window, const Rect& actual, Seconds at);

private:
  struct Entry {
    Request request;
    Seconds first{};                      ///< when it was made
    Seconds at{};                         ///< when it was sent last
    std::optional<Seconds> answeredAt{};  ///< when it was answered since it was sent last
    bool wasAnswered = false;             ///< before it was made again
    std::optional<Rect> answer{};
    bool isAlone = true;  ///< no answer to an earlier request can be taken for that to this one
    bool hasStood = false;
    bool isReshaped = false;  ///< so that its frame says nothing until the request has been corrected
    int displacements = 0;
    int corrections = 0;

    /// Whether a change at this time still counts as the window manager's answer.
    [[nodiscard]] bool isOpen(Seconds now) const;
    [[nodiscard]] bool isAnswered() const { return answeredAt || wasAnswered; }
  };

  std::unordered_map<xcb_window_t, Entry> entries_;
};

}  // namespace tilwin::x11
