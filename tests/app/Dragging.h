#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

#include "app/drag/DragWatcher.h"
#include "platform/simulated/SimulatedDesktop.h"

namespace tilwin {

/// A user with a mouse on a desktop with one window, whose title bar is at the grip.
class MouseUser {
public:
  static constexpr Rect untouched{100, 100, 800, 600};
  static constexpr Point grip{400, 110};
  /// The time between two events of a slowly moving mouse.
  static constexpr std::chrono::milliseconds pause{50};

  explicit MouseUser(SimulatedDesktop& desktop)
      : desktop_(desktop), window_(desktop.windows.open({.frame = untouched})) {}

  [[nodiscard]] SimulatedWindows::Handle window() const { return window_; }
  [[nodiscard]] Rect frame() { return desktop_.windows.find(window_)->frame; }

  void grab() { grab(grip); }
  void grab(Point at) {
    grabbedAt_ = at;
    grabbed_ = frame();
    desktop_.mouse.press(at);
  }
  /// The window follows the pointer, after a pause.
  void dragTo(Point point) { pull(following(point), point); }
  /// The user's action puts the window at this frame.
  void pull(const Rect& to, Point pointer) {
    desktop_.windows.moveByHand(window_, to);
    desktop_.time.advance(pause);
    desktop_.mouse.drag(pointer);
  }
  /// The same with other pauses.
  void dragTo(Point point, std::chrono::microseconds after) {
    desktop_.windows.moveByHand(window_, following(point));
    desktop_.time.advance(after);
    desktop_.mouse.drag(point);
  }
  void letGo() { desktop_.mouse.release(); }
  void dragAndLetGo(Point at) {
    grab();
    dragTo(at);
    letGo();
  }

private:
  [[nodiscard]] Rect following(Point point) const {
    return {grabbed_.x + point.x - grabbedAt_.x, grabbed_.y + point.y - grabbedAt_.y, grabbed_.width,
            grabbed_.height};
  }

  SimulatedDesktop& desktop_;
  SimulatedWindows::Handle window_;
  Point grabbedAt_;
  Rect grabbed_;
};

/// A drag watcher on a simulated desktop.
struct Dragging : testing::Test {
  static constexpr Rect leftHalf{0, 25, 720, 875};
  static constexpr Rect rightHalf{720, 25, 720, 875};
  static constexpr Rect whole{0, 25, 1440, 875};
  static constexpr Point inLeftZone{2, 450};
  static constexpr Point inRightZone{1438, 450};
  static constexpr Point inTopZone{720, 2};
  static constexpr Point inNoZone{500, 300};

  explicit Dragging(std::string_view displays = "1440x900+0+0") : desktop(displays) {
    desktop.windows.reserve(1, {.top = 25});
    watcher->start();
  }
  [[nodiscard]] std::optional<Rect> preview() const { return desktop.sheet.visible(); }

  SimulatedDesktop desktop;
  SnapController controller{desktop.provider()};
  std::optional<DragWatcher> watcher{
      std::in_place,
      DragWatcher::Ports{desktop.provider(), desktop.mouse, desktop.sheet, desktop.user, desktop.time},
      controller};
  MouseUser user{desktop};
};

/// The same with a second display to the right of the first.
struct DraggingOnTwoDisplays : Dragging {
  static constexpr std::string_view both = "1440x900+0+0,1000x800+1440+0";

  DraggingOnTwoDisplays() : Dragging(both) {}
};

}  // namespace tilwin
