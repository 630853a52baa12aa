#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/geometry/Rect.h"
#include "core/settings/HotKeySpec.h"
#include "platform/ports/DesktopWindows.h"
#include "platform/ports/HotKeys.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/PointerMonitor.h"
#include "platform/ports/ScreenChanges.h"

/// What every adapter of a desktop must do, whatever the desktop. The suites of this folder are written
/// against a `World`; each adapter brings one and runs the same suites in it.

namespace tilwin::contract {

/// A window that another program opens.
struct NewWindow {
  std::string bundleID = "ContractEditor";
  std::string title = "Untitled";
  Rect frame{120, 90, 520, 400};
  double minimumWidth = 1;
  double minimumHeight = 1;
  double widthStep = 1;  ///< the size follows these steps, as a terminal's follows its cells
  double heightStep = 1;
  bool isDialog = false;
};

/// A desktop with the adapter under test, and hands to work it from outside. What a call begins may take
/// effect later: `settle` waits for it.
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
  virtual void moveByHand(Window window, const Rect& frame) = 0;
  /// Where the window really stands, decorations included, as seen without the adapter; nothing when it is
  /// not open.
  virtual std::optional<Rect> standing(Window window) = 0;
  /// Whether the window is maximised, as seen without the adapter.
  virtual bool isMaximized(Window window) = 0;

  /// Key events of a physical keyboard. Modifiers go down before the key and come up after it.
  virtual void press(const HotKeySpec& spec) = 0;
  /// Holds the combination until the keyboard has repeated the key at least twice.
  virtual void pressUntilItRepeats(const HotKeySpec& spec) = 0;
  virtual void setLocks(bool capsLock, bool numLock) = 0;
  /// Another program registers the combination, or gives it back.
  virtual void holdElsewhere(const HotKeySpec& spec) = 0;
  virtual void letGoElsewhere(const HotKeySpec& spec) = 0;

  /// The hand on the mouse: its left button, and where the pointer is.
  virtual void buttonDown() = 0;
  virtual void buttonUp() = 0;
  virtual void movePointer(Point to) = 0;
  /// The user calls the drag off that is going on, by whatever does that on this desktop.
  virtual void callOffDrag() = 0;
  /// A panel takes so many points from the top of the primary display.
  virtual void takeRoomAtTop(double points) = 0;

  /// Lets the desktop and the main queue work until the condition holds. False when it does not within the
  /// world's patience.
  virtual bool settle(const std::function<bool()>& condition) = 0;

  /// The same for a check that can say what it wanted and what it saw. Returns the result of its last run.
  testing::AssertionResult settled(const std::function<testing::AssertionResult()>& check) {
    testing::AssertionResult last = testing::AssertionFailure() << "nothing was checked";
    settle([&] { return static_cast<bool>(last = check()); });
    return last;
  }
  /// Whether `see` returns the wanted value in the end.
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

/// Each test has a world of its own.
class Contract : public testing::TestWithParam<WorldMaker> {
protected:
  std::unique_ptr<World> world = GetParam()();
};

class WindowProviderContract : public Contract {
protected:
  /// Borders may be drawn with a point more or less than they are said to have.
  static constexpr double borderSlack = 2;

  /// Opens a window, gives it the focus and waits until the provider says so.
  World::Window openFocused(const NewWindow& window);
  /// The title of the focused window, as the provider sees it.
  std::optional<std::string> focusedTitle();
  WindowInfo focused();
  /// The window with this title among all windows.
  std::optional<WindowInfo> listed(const std::string& title);
  /// Whether the frame is the wanted one, give or take the borders.
  static testing::AssertionResult isNear(const std::optional<Rect>& seen, const Rect& wanted);
  /// Whether the window comes to stand there.
  testing::AssertionResult comesNear(World::Window window, const Rect& wanted);
  /// Moves the focused window and waits until it stands at the frame, give or take a few points.
  void moveFocusedTo(World::Window window, const Rect& frame);
  /// A frame well inside the primary display: the shares of its visible frame, in whole points.
  Rect place(double x, double y, double width, double height);

  std::shared_ptr<DesktopWindows> provider = world->provider();
};

/// For adapters that report a window whose size did not follow a request at the frame that was asked for.
class ReportedFrameContract : public WindowProviderContract {
protected:
  /// For windows that keep to steps of 37 by 41 points.
  static constexpr double widthStep = 37;
  static constexpr double heightStep = 41;

  /// Whether the window stands where it was asked to, but for less than a step of its width.
  static testing::AssertionResult isNearInSteps(const std::optional<Rect>& seen, const Rect& asked);
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
  /// Has the handler told of these events, from now on.
  [[nodiscard]] std::unique_ptr<PointerMonitor::Token> add(PointerEvent events,
                                                           PointerMonitor::Handler handler);
  /// Keeps note of these events, from now on.
  void watch(PointerEvent events);
  /// Waits until there are as many events; they must be exactly these, in this order.
  testing::AssertionResult received(const std::vector<PointerEvent>& events);
  /// Lets everything that is under way arrive.
  void letArrive();

  PointerMonitor& pointer = world->pointer();
  std::vector<PointerEvent> seen;
  std::vector<std::unique_ptr<PointerMonitor::Token>> tokens;
};

class ScreenChangesContract : public Contract {};

class MainQueueContract : public Contract {
protected:
  /// Runs the queue until something stops it; a run that nothing stops ends with `nobodyStopped`.
  int run();
  void stopAfter(MainQueue::Seconds delay, int exitStatus = 0);

  static constexpr int nobodyStopped = 99;
  MainQueue& queue = world->mainQueue();
};

}  // namespace tilwin::contract
