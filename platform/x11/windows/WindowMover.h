#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <unordered_map>

#include "platform/ports/MainQueue.h"
#include "platform/x11/displays/X11Displays.h"
#include "platform/x11/windows/EndedStates.h"
#include "platform/x11/windows/HeldWindow.h"
#include "platform/x11/windows/MoveLedger.h"
#include "platform/x11/windows/MoveRequests.h"
#include "platform/x11/windows/NormalShapes.h"
#include "platform/x11/windows/WindowReader.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Moves windows through the window manager and follows what becomes of it: a request is sent again if the
/// window's shape has changed on the way, if somebody else moved it as it was let go, or if it came out
/// larger and so belongs elsewhere. Frames are in points.
class WindowMover {
public:
  /// All arguments must outlive this; it must live as long as the queue runs.
  WindowMover(X11Connection& x, X11Displays& displays, HeldWindow& held, MainQueue& queue);

  /// Asks for the window to have this frame, after ending the maximised or full-screen state.
  void move(const WindowSnapshot& snapshot, const Rect& frame);
  /// The same, and back in the state it had with this frame, if it was moved out of one.
  void restore(const WindowSnapshot& snapshot, const Rect& frame);
  /// Notes what the window looks like outside of such states.
  void note(const WindowSnapshot& window);
  /// The frame to report for the window.
  [[nodiscard]] Rect reported(const WindowSnapshot& window);
  /// Whether the window manager refuses to move the window, and it has stood there since.
  [[nodiscard]] bool isRefused(xcb_window_t window, const Rect& frame) const {
    return requests_.isRefused(window, frame);
  }
  [[nodiscard]] MoveRequests& requests() { return requests_; }
  /// The window was closed.
  void forget(xcb_window_t window);
  /// All other windows were closed.
  void keepOnly(std::span<const xcb_window_t> open);

private:
  /// What to hear of a window that was moved; and as long as its shape may still change.
  static constexpr std::uint32_t moves = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  static constexpr std::uint32_t movesAndShapes = moves | XCB_EVENT_MASK_PROPERTY_CHANGE;

  struct Move {
    Rect frame;
    int repeats = 0;
    /// For the correction of a request that was computed with another shape: where the window stood before
    /// it.
    std::optional<Rect> before{};
  };
  /// What is to become of a window once it has left its states, and what it was in them.
  struct Released {
    Move move;
    Rect client;
    FrameShape shape;
    MainQueue::Seconds until{};  ///< when it is moved in any case

    [[nodiscard]] bool isOut(const WindowSnapshot& window) const;
  };

  void listenToEvents();
  void shapeMayHaveChanged(const xcb_property_notify_event_t& event);
  void windowConfigured(const xcb_configure_notify_event_t& event);
  void readWhatChanged();
  void lookAt(const WindowSnapshot& window);
  bool correctShape(const WindowSnapshot& window);
  void lookLater(xcb_window_t window);
  void settle();
  void release(const WindowSnapshot& snapshot, const Move& move);
  void askedAround(const WindowSnapshot& window, const Rect& frame);
  void placeReleased(const WindowSnapshot& window, const Released& released);
  void place(const WindowSnapshot& window, const Move& move, const FrameShape& shape);
  void watch(xcb_window_t window, std::uint32_t eventMask);

  X11Connection& x_;
  X11Displays& displays_;
  HeldWindow& held_;
  MainQueue& queue_;
  MoveLedger ledger_;
  MoveRequests requests_;
  EndedStates ended_;
  NormalShapes shapes_;
  std::unordered_map<xcb_window_t, Released> released_;
  std::set<xcb_window_t> watched_;    ///< windows that we moved and whose events we receive
  std::set<xcb_window_t> changed_;    ///< of these, those to look at in this turn of the main loop
  std::set<xcb_window_t> unsettled_;  ///< of these, those to look at once their answer is over
  DeferredWork reading_;
  DeferredWork settling_;
};

}  // namespace tilwin::x11
