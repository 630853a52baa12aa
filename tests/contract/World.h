#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/geometry/Rect.h"
#include "core/settings/HotKeySpec.h"
#include "platform/ports/DesktopWindows.h"
#include "platform/ports/HotKeys.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/PointerMonitor.h"
#include "platform/ports/ScreenChanges.h"

/// What every desktop adapter must do. The suites in this folder are written against a `World`; each adapter
/// provides one and runs the same suites with it.

namespace tilwin::contract {

/// A window that another program opens.
struct NewWindow {
  std::string bundleID = "ContractEditor";
  std::string title = "Untitled";
  Rect frame{120, 90, 520, 400};
  double minimumWidth = 1;
  double minimumHeight = 1;
  double widthStep = 1;  ///< size increments, like a terminal's cells
  double heightStep = 1;
  bool isDialog = false;
};

/// A desktop with the adapter under test, and the means to operate it from outside. Calls may take effect
/// asynchronously: `settle` waits for that.
class World {
public:
  using Window = std::uint64_t;

  World() = default;
  World(const World&) = delete;
  World& operator=(const World&) = delete;
  virtual ~World() = default;

  virtual std::shared_ptr<DesktopWindows> provider() = 0;
  virtual HotKeys& hotKeys() = 0;
  virtual MainQueue& mainQueue() = 0;
  virtual PointerMonitor& pointer() = 0;
  virtual ScreenChanges& screenChanges() = 0;

  virtual Window open(const NewWindow& window) = 0;
  virtual void close(Window window) = 0;
  virtual void focus(Window window) = 0;
  virtual void minimize(Window window) = 0;
  virtual void maximize(Window window) = 0;
  virtual void unmaximize(Window window) = 0;
  virtual void moveByHand(Window window, const Rect& frame) = 0;
  /// The window's actual frame including decorations, read without the adapter; nothing if it is not open.
  virtual std::optional<Rect> standing(Window window) = 0;
  /// Whether the window is maximised, read without the adapter.
  virtual bool isMaximized(Window window) = 0;

  /// Key events of a physical keyboard. Modifiers go down before the key and come up after it.
  virtual void press(const HotKeySpec& spec) = 0;
  /// Holds the combination until the keyboard has repeated the key at least twice.
  virtual void pressUntilItRepeats(const HotKeySpec& spec) = 0;
  virtual void setLocks(bool capsLock, bool numLock) = 0;
  /// Another program registers the combination, or gives it back.
  virtual void holdElsewhere(const HotKeySpec& spec) = 0;
  virtual void letGoElsewhere(const HotKeySpec& spec) = 0;

  /// The left mouse button and the pointer.
  virtual void buttonDown() = 0;
  virtual void buttonUp() = 0;
  virtual void movePointer(Point to) = 0;
  /// The user cancels the current drag in the way this desktop offers, if it offers one.
  virtual void callOffDrag() = 0;
  /// A panel reserves this many points at the top of the primary display.
  virtual void takeRoomAtTop(double points) = 0;

  /// Runs the desktop and the main queue until the condition holds. Returns false on timeout.
  virtual bool settle(const std::function<bool()>& condition) = 0;

  /// The same for a check that reports what it wanted and what it saw. Returns its last result.
  testing::AssertionResult settled(const std::function<testing::AssertionResult()>& check) {
    testing::AssertionResult last = testing::AssertionFailure() << "nothing was checked";
    settle([&] { return static_cast<bool>(last = check()); });
    return last;
  }
  /// Waits until `see` returns the wanted value.
  template <typename Wanted, typename See>
  testing::AssertionResult comesTo(const Wanted& wanted, See see) {
    return settled([&] {
      const Wanted seen = see();
      if (seen == wanted) return testing::AssertionSuccess();
      return testing::AssertionFailure()
             << "wanted " << testing::PrintToString(wanted) << ", but saw " << testing::PrintToString(seen);
    });
  }
};

using WorldMaker = std::unique_ptr<World> (*)();

/// Each test has its own world.
class Contract : public testing::TestWithParam<WorldMaker> {
protected:
  std::unique_ptr<World> world = GetParam()();
};

class WindowProviderContract : public Contract {
protected:
  /// Borders may be drawn up to this many points wider or narrower than they are reported.
  static constexpr double borderSlack = 2;

  /// Opens a window, gives it the focus and waits until the provider says so.
  World::Window openFocused(const NewWindow& window);
  /// The title of the focused window, as the provider sees it.
  std::optional<std::string> focusedTitle();
  WindowInfo focused();
  /// The window with this title among all windows.
  std::optional<WindowInfo> listed(const std::string& title);
  /// Whether the frame is the wanted one, within `borderSlack`.
  static testing::AssertionResult isNear(const std::optional<Rect>& seen, const Rect& wanted);
  /// Waits until the window is at this frame, within `borderSlack`.
  testing::AssertionResult comesNear(World::Window window, const Rect& wanted);
  /// Moves the focused window and waits until it is at the frame, within `borderSlack`.
  void moveFocusedTo(World::Window window, const Rect& frame);
  /// A frame in whole points, given as fractions of the primary display's visible frame.
  Rect place(double x, double y, double width, double height);

  std::shared_ptr<DesktopWindows> provider = world->provider();
};

/// For adapters that report the requested frame for a window that did not fully follow the request.
class ReportedFrameContract : public WindowProviderContract {
protected:
  /// Size increments of a window, in points.
  static constexpr double widthStep = 37;
  static constexpr double heightStep = 41;

  /// Whether the frame is the requested one, up to one increment of its width.
  static testing::AssertionResult isNearInSteps(const std::optional<Rect>& seen, const Rect& asked);
};

/// For windows that cannot be as small as the tile they are to fill.
class LargeWindowContract : public WindowProviderContract {
protected:
  /// Opens a focused window that is never smaller than about three fifths of the visible frame.
  World::Window openLarge();
  /// Waits until the window, larger than this tile at the visible frame's edge, stands at its outer edges and
  /// is reported at the tile.
  testing::AssertionResult comesToOuterEdges(World::Window window, const Rect& tile);
};

/// For desktops where being maximised is a state of its own beside a window's frame.
class MaximizedWindowContract : public WindowProviderContract {
protected:
  void maximize(World::Window window);
  /// Waits until the window is maximised, and is reported like that.
  testing::AssertionResult isMaximizedAt(World::Window window, const Rect& frame);
};

class HotKeysContract : public Contract {
protected:
  void SetUp() override;
  void TearDown() override;

  [[nodiscard]] std::optional<HotKeys::Reference> add(const HotKeySpec& spec, std::uint32_t id);
  /// Waits until there are as many presses; they must be exactly these, in this order.
  testing::AssertionResult received(const std::vector<std::uint32_t>& ids);

  HotKeys& hotKeys = world->hotKeys();
  std::vector<std::uint32_t> presses;
};

class PointerContract : public Contract {
protected:
  /// Registers the handler for these events.
  [[nodiscard]] std::unique_ptr<PointerMonitor::Token> add(PointerEvent events,
                                                           PointerMonitor::Handler handler);
  /// Records these events in `seen`.
  void watch(PointerEvent events);
  /// Waits until there are as many events; they must be exactly these, in this order.
  testing::AssertionResult received(const std::vector<PointerEvent>& events);
  /// Waits until all pending events have arrived.
  void letArrive();
  /// Presses the button and drags to a place, until that is told. What is told of this drag is in `places`.
  void takeHoldAndDrag(Point to);
  /// Releases the button right after the pointer has come there.
  void letGoInMotion(Point at);
  /// Waits until this is the last that was told.
  testing::AssertionResult isTold(PointerEvent event, Point place);

  PointerMonitor& pointer = world->pointer();
  std::vector<PointerEvent> seen;
  /// An event, and where the pointer was for those who were told of it.
  using Placed = std::pair<PointerEvent, Point>;
  std::vector<Placed> places;
  std::vector<std::unique_ptr<PointerMonitor::Token>> tokens;
};

/// For desktops where the user can cancel a drag.
class CancelledDragContract : public PointerContract {};

class ScreenChangesContract : public Contract {};

class MainQueueContract : public Contract {
protected:
  /// Runs the queue until something stops it. Returns `nobodyStopped` on timeout.
  int run();
  void stopAfter(MainQueue::Seconds delay, int exitStatus = 0);

  static constexpr int nobodyStopped = 99;
  MainQueue& queue = world->mainQueue();
};

}  // namespace tilwin::contract
