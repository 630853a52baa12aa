#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <span>
#include <unordered_map>

#include "core/doctor/DesktopFacts.h"
#include "platform/ports/MainQueue.h"
#include "platform/x11/windows/MoveAttempt.h"
#include "platform/x11/windows/PulledWindow.h"
#include "platform/x11/windows/WindowReader.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Asks the window manager to move windows, in the ways that it takes. Some do not take the message of EWMH
/// for that, or list it and ignore it; some refuse whatever is asked for a window that they have tiled. So a
/// window that has not moved a while after it was to is asked for again in another way, and what the manager
/// shows of its habits is remembered until another one starts. Frames are in points.
class MoveRequests {
public:
  /// The connection and the queue must outlive this; it must live as long as the queue runs.
  MoveRequests(X11Connection& x, MainQueue& queue);
  MoveRequests(const MoveRequests&) = delete;
  MoveRequests& operator=(const MoveRequests&) = delete;
  ~MoveRequests() = default;

  /// Asks for a window to have this frame, with the shape it will have then, and flushes the connection.
  /// `isDropped` if a hand has just let the window go. The caller must be sent the window's ConfigureNotify
  /// events. Takes no round trip with a window manager that takes the message.
  void ask(const WindowSnapshot& window, const FrameShape& shape, const Rect& frame, bool isDropped);
  /// The window is to go elsewhere by another request, so what was asked for is not asked again.
  void giveUp(xcb_window_t window) { attempts_.erase(window); }
  /// Called when a window that has not moved is asked for again.
  void onRepeated(std::function<void(xcb_window_t)> handler) { onRepeated_ = std::move(handler); }
  /// Called when all ways to move a window were refused.
  void onRefused(std::function<void(xcb_window_t)> handler) { onRefused_ = std::move(handler); }
  /// Whether the window manager refuses to move the window, and it has stood there since.
  [[nodiscard]] bool isRefused(xcb_window_t window, const Rect& frame) const;
  /// Whether the last request for the window may still be sent again in another way.
  [[nodiscard]] bool isAsking(xcb_window_t window) const { return attempts_.contains(window); }
  /// What the window manager at hand says and has shown. May take a round trip.
  [[nodiscard]] const ManagerHabits& habits();
  /// Whether it has refused to move a window.
  [[nodiscard]] bool hasRefused() const { return isRefusalLogged_; }
  /// When windows were last asked for, the oldest first, and when their manager first answered.
  static constexpr std::size_t mostTimes = 40;
  [[nodiscard]] const std::deque<MoveTimes>& times() const { return times_; }
  /// The window was closed.
  void forget(xcb_window_t window);
  /// Forgets all but these windows.
  void keepOnly(std::span<const xcb_window_t> open);

private:
  void noteAnswer(const MoveAttempt& attempt);
  void configured(const xcb_configure_notify_event_t& event);
  void reviewHabits();
  void judgeAll();
  void follow(MoveAttempt attempt, const WindowSnapshot& window);
  void begin(MoveAttempt attempt, const WindowSnapshot& window, const FrameShape& shape);
  void repeat(const MoveAttempt& attempt, const WindowSnapshot& window);
  void send(const MoveAttempt& attempt, const WindowSnapshot& window, const FrameShape& shape) const;
  void learnFrom(const MoveAttempt& attempt, const WindowSnapshot& window);
  void insist(MoveAttempt attempt, const WindowSnapshot& window);
  void pull(MoveAttempt attempt, const WindowSnapshot& window);
  void refuse(const WindowSnapshot& window);

  X11Connection& x_;
  MainQueue& queue_;
  PulledWindow pulled_;
  int nudges_ = 0;
  std::function<void(xcb_window_t)> onRepeated_;
  std::function<void(xcb_window_t)> onRefused_;
  ManagerHabits habits_;
  xcb_window_t manager_;     ///< the window by which the manager announces itself whose habits these are
  bool mayBeNew_ = false;    ///< another manager may have started
  int ignoredMessages_ = 0;  ///< in a row, of windows that were then moved by ConfigureWindow
  bool isRefusalLogged_ = false;
  std::unordered_map<xcb_window_t, MoveAttempt> attempts_;
  std::map<xcb_window_t, Rect> refused_;  ///< with the frame that the window kept
  std::deque<MoveTimes> times_;
  DeferredWork judging_;
};

}  // namespace tilwin::x11
