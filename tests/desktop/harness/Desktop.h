#pragma once

#include <sys/types.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/EventWatch.h"
#include "tests/desktop/harness/Manager.h"
#include "tests/desktop/harness/Monitor.h"
#include "tests/desktop/harness/Waiting.h"
#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// States of a window by which tests ask (EWMH _NET_WM_STATE).
enum class WindowState { maximizedVertically, maximizedHorizontally, fullScreen, hidden, focused, above };

/// A request to the window manager to place a window's frame, computed with its current borders.
struct PlaceRequest {
  WindowId window = 0;
  std::array<std::uint32_t, 5> data{};
};

/// Observes a desktop over its own connection and can make the requests of a pager. Uses only EWMH and ICCCM
/// to identify windows. Not thread-safe.
class Desktop {
public:
  explicit Desktop(const std::string& display);

  XConnection& connection() { return connection_; }

  /// Waits until the predicate holds. Evaluates it after every event of the root and client windows, and a
  /// few times a second for changes without an event (a file, a process). Returns false on timeout or if the
  /// connection is lost.
  bool waitUntil(const Predicate& predicate, Milliseconds timeout = answerTimeout);
  /// Waits until no event has arrived for that long. Returns false on timeout.
  bool settle(Milliseconds quiet = Milliseconds{200}, Milliseconds timeout = answerTimeout);

  /// The managed windows, oldest first; and bottom to top.
  std::vector<WindowId> clients();
  std::vector<WindowId> stacking();
  /// The visible children of the root window, managed or not, bottom to top.
  std::vector<WindowId> inView();
  /// The newest managed window of a class (either half of WM_CLASS) or process (_NET_WM_PID).
  std::optional<WindowId> windowOfClass(const std::string& name);
  std::optional<WindowId> windowOfProcess(pid_t pid);
  /// The topmost visible override-redirect window of a class.
  std::optional<WindowId> unmanagedOfClass(const std::string& name);
  /// Waits for such a window; throws HarnessError on timeout.
  WindowId waitForClass(const std::string& name, Milliseconds timeout = startTimeout);

  std::string title(WindowId window);
  /// WM_CLASS: instance and class, empty when missing.
  std::pair<std::string, std::string> wmClass(WindowId window);
  pid_t process(WindowId window);
  bool viewable(WindowId window);

  WindowId activeWindow();
  /// Asks the window manager, as a pager does, and waits until the window is active. Returns false on
  /// timeout.
  bool activate(WindowId window);
  /// Asks to close, as a pager does.
  void close(WindowId window);

  /// The client window itself, in root coordinates; nothing if the window does not exist any more.
  std::optional<Rect> clientArea(WindowId window);
  /// The visible frame: the client area plus its frame's extents, minus _GTK_FRAME_EXTENTS (the invisible
  /// shadow).
  std::optional<Rect> frame(WindowId window);
  /// The child of the root that contains the window: the window manager's frame window, or the client itself.
  WindowId topLevel(WindowId window);
  /// That window's own geometry with its X border.
  std::optional<Rect> topLevelArea(WindowId window);
  /// _NET_FRAME_EXTENTS; measured where the window manager does not tell.
  Extents frameExtents(WindowId window);
  Extents shadowExtents(WindowId window);
  /// A point on the title bar (or the client's own header bar) without a button, by which the window can be
  /// dragged. Throws HarnessError if the window does not exist any more.
  PixelPoint titleBar(WindowId window);
  /// The resize increments: PResizeInc of WM_NORMAL_HINTS (ICCCM 4.1.2.3), else 1 by 1.
  PixelSize sizeIncrement(WindowId window);

  bool has(WindowId window, WindowState state);
  bool maximized(WindowId window);
  /// Asks for a state, as a pager does, without waiting. Hidden goes by WM_CHANGE_STATE (ICCCM).
  void set(WindowId window, WindowState state, bool on);
  void setMaximized(WindowId window, bool on);
  /// How the window manager takes requests for a place; by frameByMessage unless told otherwise.
  void setPlacing(Placing placing) { placing_ = placing; }
  /// Asks the window manager to place the window's frame there.
  void place(WindowId window, const Rect& wanted);
  /// The same in two steps; the second sends exactly one message.
  PlaceRequest placeRequest(WindowId window, const Rect& wanted);
  void send(const PlaceRequest& request);
  /// Waits until each of the frame's four numbers is within the tolerance. Returns false on timeout.
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

  /// Whether a window manager is running (_NET_SUPPORTING_WM_CHECK is valid), and its name.
  bool managed();
  /// Whether the window manager lists this message or property in _NET_SUPPORTED (EWMH).
  bool supports(const std::string& feature);
  std::string managerName();

private:
  std::optional<WindowId> newest(const std::function<bool(WindowId)>& fits);

  XConnection connection_;
  EventWatch events_;
  Placing placing_ = Placing::frameByMessage;
};

}  // namespace tilwin::desktop
