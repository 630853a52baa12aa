#pragma once

#include <sys/types.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/EventWatch.h"
#include "tests/desktop/harness/Monitor.h"
#include "tests/desktop/harness/Waiting.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// States of a window by which tests ask (EWMH _NET_WM_STATE).
enum class WindowState { maximizedVertically, maximizedHorizontally, fullScreen, hidden, focused, above };

/// A message that asks the manager to place a window's frame, worked out with the borders it has now.
struct PlaceRequest {
  WindowId window = 0;
  std::array<std::uint32_t, 5> data{};
};

/// The witness: what an onlooker with a connection of its own sees of a desktop, and what a pager could ask
/// of it. It knows windows by EWMH and ICCCM alone. Not thread-safe.
class Desktop {
public:
  explicit Desktop(const std::string& display);

  XConnection& connection() { return connection_; }

  /// Waits until the predicate holds, asking again after every event of the root and of the client windows
  /// (and a few times a second, for what sends no event: a file, a process). False when time ran out or the
  /// server is gone.
  bool waitUntil(const Predicate& predicate, Milliseconds timeout = answerTimeout);
  /// Waits until the desktop has been still for that long. False when it never is.
  bool settle(Milliseconds quiet = Milliseconds{200}, Milliseconds timeout = answerTimeout);

  /// The managed windows, oldest first; and bottom to top.
  std::vector<WindowId> clients();
  std::vector<WindowId> stacking();
  /// The newest managed window of a class (either half of WM_CLASS) or process (_NET_WM_PID).
  std::optional<WindowId> windowOfClass(const std::string& name);
  std::optional<WindowId> windowOfProcess(pid_t pid);
  /// The topmost visible window of a class that keeps managers out (override-redirect).
  std::optional<WindowId> unmanagedOfClass(const std::string& name);
  /// Waits for one; throws HarnessError when none comes.
  WindowId waitForClass(const std::string& name, Milliseconds timeout = startTimeout);

  std::string title(WindowId window);
  /// WM_CLASS: instance and class, empty when missing.
  std::pair<std::string, std::string> wmClass(WindowId window);
  pid_t process(WindowId window);
  bool viewable(WindowId window);

  WindowId activeWindow();
  /// Asks the manager, as a pager does; waits until the window is active. False when it never is.
  bool activate(WindowId window);
  /// Asks to close, as a pager does.
  void close(WindowId window);

  /// The client window itself, in root coordinates; nothing when the window has gone.
  std::optional<Rect> clientArea(WindowId window);
  /// What a person sees as the window: the client area with _NET_FRAME_EXTENTS around it and
  /// _GTK_FRAME_EXTENTS (invisible shadow) taken off.
  std::optional<Rect> frame(WindowId window);
  /// The child of the root that holds the window: the manager's frame window, or the client itself.
  WindowId topLevel(WindowId window);
  /// That window's own geometry with its X border.
  std::optional<Rect> topLevelArea(WindowId window);
  Extents frameExtents(WindowId window);
  Extents shadowExtents(WindowId window);
  /// A point to drag the window by where no button is: on its title bar, or the header bar it draws itself.
  /// Throws HarnessError when the window has gone.
  PixelPoint titleBar(WindowId window);
  /// The steps in which the size can change: PResizeInc of WM_NORMAL_HINTS (ICCCM 4.1.2.3), else 1 by 1.
  PixelSize sizeIncrement(WindowId window);

  bool has(WindowId window, WindowState state);
  bool maximized(WindowId window);
  /// Asks for a state, as a pager does, without waiting. Hidden goes by WM_CHANGE_STATE (ICCCM).
  void set(WindowId window, WindowState state, bool on);
  void setMaximized(WindowId window, bool on);
  /// Asks the manager to place the window's frame there (_NET_MOVERESIZE_WINDOW); used to set a scene.
  void place(WindowId window, const Rect& wanted);
  /// The same in two steps, for who has to know that the second is one message and nothing else.
  PlaceRequest placeRequest(WindowId window, const Rect& wanted);
  void send(const PlaceRequest& request);
  /// Waits until each of the frame's four numbers is within the tolerance. False when they never are.
  bool waitForFrame(WindowId window, const Rect& wanted, double tolerance = 0,
                    Milliseconds timeout = answerTimeout);

  PixelSize screenSize();
  std::vector<Monitor> monitors();
  std::vector<Strut> struts();
  Rect visibleFrame(const Monitor& monitor);
  /// _NET_WORKAREA of the current desktop.
  std::optional<Rect> workArea();
  /// Whether a compositing manager owns this screen (_NET_WM_CM_Sn).
  bool composited();

  /// Whether a manager manages: _NET_SUPPORTING_WM_CHECK is valid. And the name it gives itself.
  bool managed();
  std::string managerName();

private:
  std::optional<WindowId> newest(const std::function<bool(WindowId)>& fits);

  XConnection connection_;
  EventWatch events_;
};

}  // namespace tilwin::desktop
