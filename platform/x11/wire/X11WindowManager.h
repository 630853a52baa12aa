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

  /// Calls the task at once if a window manager runs, otherwise once, after one has started. One that does
  /// not tell yet that it moves windows on request gets a second for it; if it never does, that is logged.
  void whenRunning(std::function<void()> task);
  /// Calls the task each time another window manager has started, a second later: it has grabbed its own keys
  /// by then.
  void onStart(std::function<void()> task) { onStart_ = std::move(task); }

private:
  void checkNow();

  X11Connection& x_;
  SystemLog& log_;
  std::function<void()> whenRunning_;
  std::function<void()> onStart_;
  DeferredWork check_;
};

}  // namespace tilwin::x11
