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

/// Lets the user snap a window by dragging it to an edge or a corner of a display: recognises the drag, shows
/// where the window would go and sends it there when the button comes up. Only watches; the desktop goes on
/// moving the window.
class DragWatcher {
public:
  /// What is asked of the desktop. All of it must outlive the watcher, but for the windows, which are held
  /// weakly.
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

  std::function<bool()> isEnabled = [] { return true; };
  /// Whether windows of this application are left alone.
  std::function<bool(const std::string& bundleID)> isIgnored = [](const std::string&) { return false; };
  /// Whether the drags that follow are told to `shadow`.
  std::function<bool()> isShadowOn = [] { return false; };
  std::shared_ptr<ShadowRecorder> shadow;  ///< may be null

  /// Begins to watch; a second call does nothing.
  void start();
  /// A drag under way goes on, but not to a display that is no longer there as it was.
  void displaysChanged();

private:
  /// Where the window would go if it were let go now.
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

  std::optional<WindowInfo> dragged_;  ///< as it stood when the button went down
  bool moving_ = false;                ///< the window is being moved, and not resized
  std::optional<Target> target_;       ///< the overlay shows it for as long as there is one
  std::optional<MainQueue::WallTime> lastCheck_;
  DragTrace trace_;
  MainQueue::Seconds traceStart_{};
  /// Monitors hold this weakly, so that an event still on its way when the watcher goes does nothing.
  std::shared_ptr<DragWatcher*> self_;
};

}  // namespace tilwin
