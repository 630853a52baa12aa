#pragma once

#include <functional>
#include <utility>

#include "platform/ports/MainQueue.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// Tells when a window manager starts, for instance at login, where it may start after this program. Source:
/// EWMH, _NET_SUPPORTING_WM_CHECK.
class X11WindowManager {
public:
  /// The arguments must outlive this, and this must live as long as the queue runs.
  X11WindowManager(X11Connection& x, MainQueue& queue, SystemLog& log);
  X11WindowManager(const X11WindowManager&) = delete;
  X11WindowManager& operator=(const X11WindowManager&) = delete;
  ~X11WindowManager() = default;

  /// Calls the task at once if a window manager runs, otherwise once, a second after one has started.
  void whenRunning(std::function<void()> task);
  /// Calls the task each time another window manager has started, a second later: it has grabbed its own keys
  /// by then.
  void onStart(std::function<void()> task) { onStart_ = std::move(task); }

private:
  void checkNow();
  /// Whether another manager runs than the one noticed last; notices it. Call it before asking what it
  /// offers.
  bool noticeManager();
  void forgetManager();

  X11Connection& x_;
  SystemLog& log_;
  std::function<void()> whenRunning_;
  std::function<void()> onStart_;
  xcb_window_t noticed_ = XCB_WINDOW_NONE;  ///< the window by which the manager announces itself
  DeferredWork check_;
};

}  // namespace tilwin::x11
