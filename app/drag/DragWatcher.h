#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/drag/DragTrace.h"
#include "core/drag/ShadowRecorder.h"
#include "core/snap/SnapController.h"
#include "platform/ports/AccessibilityTrust.h"
#include "platform/ports/DesktopWindows.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/Overlay.h"
#include "platform/ports/PointerMonitor.h"

namespace tilwin {

/// Snaps windows that the user drags to an edge or corner of a display: detects the drag, shows a preview of
/// the frame and moves the window there when the button is released. It only observes the pointer; the
/// desktop moves the window during the drag. Main thread only. Fails silently: if the window disappears or
/// permission is withdrawn, the drag is dropped.
class DragWatcher {
public:
  /// The ports it uses. All must outlive the watcher, except `windows`, which is held weakly.
  struct Ports {
    std::weak_ptr<DesktopWindows> windows;
    PointerMonitor& pointer;
    Overlay& overlay;
    AccessibilityTrust& trust;
    MainQueue& mainQueue;
  };

  /// The controller must outlive the watcher.
  DragWatcher(Ports ports, SnapController& controller);
  DragWatcher(const DragWatcher&) = delete;
  DragWatcher& operator=(const DragWatcher&) = delete;
  ~DragWatcher() = default;

  /// Asked at each event; if false, the event only cancels the drag.
  std::function<bool()> isEnabled = [] { return true; };
  /// Whether windows of this application must not be moved.
  std::function<bool(const std::string& bundleID)> isIgnored = [](const std::string&) { return false; };
  /// Whether drags are reported to `shadow`.
  std::function<bool()> isShadowOn = [] { return false; };
  std::shared_ptr<ShadowRecorder> shadow;  ///< may be null

  /// Starts watching; a second call does nothing.
  void start();
  /// Call when displays have changed: drops the current target if its display has changed or is gone. The
  /// drag itself continues.
  void displaysChanged();

private:
  /// Where the window would go if it were released now.
  struct Target {
    SnapAction zone = SnapAction::leftHalf;
    DisplayInfo display{};

    bool operator==(const Target&) const = default;
  };
  using Step = void (DragWatcher::*)();

  void keepMonitor(std::unique_ptr<PointerMonitor::Token> token);
  [[nodiscard]] PointerMonitor::Handler handlerFor(Step step);
  void handle(Step step);
  void buttonDown();
  void pointerDragged();
  void buttonUp();
  void reset();

  [[nodiscard]] bool isDue();
  void recogniseMove(const Rect& frame);
  void aimAt(Point point);
  void setTarget(const std::optional<Target>& target);
  void updateOverlay();
  void noteSample(Point point);
  void recordRelease(std::optional<SnapAction> snapped);
  [[nodiscard]] std::vector<DisplayInfo> displays() const;

  Ports ports_;
  SnapController& controller_;
  std::vector<std::unique_ptr<PointerMonitor::Token>> monitors_;
  std::unique_ptr<PointerMonitor::Token> cancelled_;

  std::optional<WindowInfo> dragged_;  ///< the window as it was when the button was pressed
  bool moving_ = false;                ///< whether the window is being moved, not resized
  std::optional<Target> target_;       ///< shown by the overlay while set
  std::optional<MainQueue::WallTime> lastCheck_;
  DragTrace trace_;
  MainQueue::Seconds traceStart_{};
  /// Handlers hold this weakly, so that an event delivered after the watcher is destroyed does nothing.
  std::shared_ptr<DragWatcher*> self_;
};

}  // namespace tilwin
