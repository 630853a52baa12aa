#pragma once

#include <chrono>
#include <optional>

#include "core/geometry/Rect.h"
#include "platform/x11/windows/Margins.h"

namespace tilwin::x11 {

/// The ways to ask a window manager to move a window, in the order in which they are tried.
enum class MoveWay {
  message,    ///< _NET_MOVERESIZE_WINDOW (EWMH), as pagers ask
  configure,  ///< ConfigureWindow, as the window's own client asks (ICCCM, 4.1.5)
  untile,     ///< the message, after maximising the window and ending that: this ends a tile of kwin's too
  pull,       ///< the message, after the window was pulled out of its tile: metacity's end in no other way
};

/// How far the outer corner of the client's own window is from that of the frame.
[[nodiscard]] Point clientCorner(const FrameShape& shape);

/// What is known of the window manager at hand: what it says, and what it has shown.
struct ManagerHabits {
  bool takesMessage = false;    ///< lists _NET_MOVERESIZE_WINDOW
  bool maximizes = false;       ///< lists _NET_WM_STATE_MAXIMIZED_VERT
  bool movesByHand = false;     ///< lists _NET_WM_MOVERESIZE
  bool ignoresMessage = false;  ///< lists the message, but has only done what ConfigureWindow asked for
  bool obeysMessage = false;    ///< has done what the message asked for
  bool tilesItself = false;     ///< had to be made to give up a tile
  bool placesClient = false;    ///< puts the client area where the corner of the frame was asked to be

  bool operator==(const ManagerHabits&) const = default;

  [[nodiscard]] MoveWay firstWay() const;
  /// The way to try after this one was refused for a window that is still maximised or not; nothing if none
  /// is left.
  [[nodiscard]] std::optional<MoveWay> wayAfter(MoveWay refused, bool isStillMaximized) const;
};

/// How a window is seen to stand.
struct Standing {
  Rect frame{};
  FrameShape shape{};
  /// Whether the window's own limits are reason enough not to take the size it was asked to take.
  bool mayKeepSize = false;
};

/// One request to a window manager, and what came of it. Nothing waits for it: a while later the attempt is
/// judged by what was seen meanwhile. Frames are in points; times are those of `MainQueue::uptime`.
struct MoveAttempt {
  using Seconds = std::chrono::duration<double>;
  /// How long a window manager may take to move a window before that counts as a refusal. Whether it is just
  /// slow, only an answer to ConfigureWindow tells. They send one also if they refuse, except that metacity
  /// says nothing of some windows that it has tiled.
  static constexpr Seconds patience{0.1};
  /// How long after such an answer a window may still move.
  static constexpr Seconds aftermath{0.04};
  /// A window so near, in points, stands as asked: where half a point was rounded up, a manager may keep it
  /// inside the display.
  static constexpr double rounding{1};
  /// After this time without any answer the attempt is given up.
  static constexpr Seconds longest{1.0};

  enum class Verdict {
    open,       ///< too early to tell
    settled,    ///< the window stands as asked, or as near as window and manager let it
    misplaced,  ///< exactly as far off as if the position had been that of the client area
    moved,      ///< the window was let go by a hand, and has since been moved elsewhere
    refused,    ///< the window stands where it stood
    unheard,    ///< no answer came
  };

  Rect wanted{};
  Rect before{};
  Size clientBefore{};  ///< the size of the client area then
  MoveWay way = MoveWay::message;
  Seconds at{};
  Seconds firstAt{};       ///< when the first of the requests was sent that this one repeats
  bool isDropped = false;  ///< a hand has just let the window go, so its manager may still move it
  std::optional<Seconds> answeredAt{};  ///< when the manager confirmed some frame, for the first time since
  bool isResized = false;               ///< some other size was seen since
  bool isCorrected = false;             ///< follows one that was misplaced

  [[nodiscard]] Verdict judge(const Standing& now, const ManagerHabits& habits, Seconds time) const;

private:
  [[nodiscard]] bool isDue(Seconds time) const;
  [[nodiscard]] bool isMisplaced(const Standing& now, const ManagerHabits& habits) const;
};

}  // namespace tilwin::x11
