#include "app/drag/DragWatcher.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/drag/DragFeatures.h"
#include "core/drag/DragIntentModel.h"
#include "core/drag/NeighbourEdges.h"
#include "core/snap/DragZone.h"

namespace tilwin {
namespace {

constexpr double resizeTolerance = 2;   ///< points; a larger change of size counts as a resize
constexpr double unmovedTolerance = 4;  ///< points; a shift up to this does not count as a move

std::optional<DisplayInfo> displayUnder(Point point, const std::vector<DisplayInfo>& displays) {
  const auto found = std::find_if(displays.begin(), displays.end(), [&](const DisplayInfo& display) {
    return display.frame.contains(point.x, point.y);
  });
  return found == displays.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

DragWatcher::DragWatcher(Ports ports, SnapController& controller)
    : ports_(std::move(ports)), controller_(controller), self_(std::make_shared<DragWatcher*>(this)) {}

void DragWatcher::start() {
  if (!monitors_.empty()) return;
  PointerMonitor& pointer = ports_.pointer;
  keepMonitor(pointer.addGlobal(PointerEvent::leftMouseDown, handlerFor(&DragWatcher::buttonDown)));
  keepMonitor(pointer.addGlobal(PointerEvent::leftMouseDragged, handlerFor(&DragWatcher::pointerDragged)));
  keepMonitor(pointer.addGlobal(PointerEvent::leftMouseUp, handlerFor(&DragWatcher::buttonUp)));
  keepMonitor(pointer.addLocal(PointerEvent::leftMouseUp, handlerFor(&DragWatcher::buttonUp)));
  cancelled_ = pointer.addCancelled([weak = std::weak_ptr(self_)] {
    if (const auto self = weak.lock()) (*self)->reset();
  });
}

void DragWatcher::keepMonitor(std::unique_ptr<PointerMonitor::Token> token) {
  if (token) monitors_.push_back(std::move(token));
}

PointerMonitor::Handler DragWatcher::handlerFor(Step step) {
  return [weak = std::weak_ptr(self_), step](PointerEvent) {
    if (const auto self = weak.lock()) (*self)->handle(step);
  };
}

void DragWatcher::handle(Step step) {
  if (!isEnabled() || !ports_.trust.isTrusted()) return reset();
  (this->*step)();
}

void DragWatcher::buttonDown() {
  reset();
  const Point point = ports_.pointer.position();
  const auto windows = ports_.windows.lock();
  auto window = windows ? windows->window(point) : std::nullopt;
  if (!window || isIgnored(window->bundleID)) return;
  dragged_ = std::move(window);
  traceStart_ = ports_.mainQueue.uptime();
}

void DragWatcher::pointerDragged() {
  if (!dragged_ || !isDue()) return;
  const auto windows = ports_.windows.lock();
  const auto frame = windows ? windows->frame(dragged_->id) : std::nullopt;
  if (!frame) return reset();
  if (!moving_) recogniseMove(*frame);
  if (!moving_) return;
  const Point point = ports_.pointer.position();
  if (isShadowOn()) noteSample(point);
  aimAt(point);
}

void DragWatcher::buttonUp() {
  if (moving_ && dragged_) {
    if (target_) controller_.snap(dragged_->id, target_->zone, target_->display, dragged_->frame);
    if (isShadowOn()) recordRelease(target_ ? std::optional(target_->zone) : std::nullopt);
  }
  reset();
}

void DragWatcher::reset() {
  dragged_.reset();
  moving_ = false;
  trace_ = {};
  setTarget(std::nullopt);
}

/// Limits how often the window's frame is read, as that costs a round trip. If the wall clock was set back,
/// `lastCheck_` is in the future; the check is then due at once instead of being postponed.
bool DragWatcher::isDue() {
  const MainQueue::WallTime now = ports_.mainQueue.now();
  if (lastCheck_ && *lastCheck_ <= now && now - *lastCheck_ <= PointerMonitor::betweenLooks) return false;
  lastCheck_ = now;
  return true;
}

void DragWatcher::recogniseMove(const Rect& frame) {
  const Rect& start = dragged_->frame;
  const double distance = std::max(std::abs(frame.x - start.x), std::abs(frame.y - start.y));
  moving_ = std::abs(frame.width - start.width) <= resizeTolerance && distance > unmovedTolerance &&
            std::abs(frame.height - start.height) <= resizeTolerance;
}

void DragWatcher::aimAt(Point point) {
  const auto display = displayUnder(point, displays());
  const auto zone =
      display ? DragZone::action(point, *display, DragZone::edgeDepth, DragZone::cornerReach) : std::nullopt;
  setTarget(zone ? std::optional(Target{*zone, *display}) : std::nullopt);
}

/// Compares the display too: a fast pointer can go from the left zone of one display directly to the left
/// zone of another.
void DragWatcher::setTarget(const std::optional<Target>& target) {
  if (target_ == target) return;
  target_ = target;
  updateOverlay();
}

void DragWatcher::updateOverlay() {
  if (!target_ || !dragged_) return ports_.overlay.hide();
  const auto frame = SnapActions::frame(target_->zone, dragged_->frame, target_->display.visibleFrame,
                                        controller_.outer, controller_.gap);
  if (frame) ports_.overlay.show(*frame);
}

void DragWatcher::displaysChanged() {
  if (!target_) return;
  const auto listed = displays();
  if (std::find(listed.begin(), listed.end(), target_->display) == listed.end()) setTarget(std::nullopt);
}

void DragWatcher::noteSample(Point point) {
  if (trace_.samples.empty() && shadow) shadow->dragMoved(dragged_->id);
  trace_.append({(ports_.mainQueue.uptime() - traceStart_).count(), point.x, point.y});
}

void DragWatcher::recordRelease(std::optional<SnapAction> snapped) {
  const Point point = ports_.pointer.position();
  noteSample(point);
  const auto all = displays();
  const auto display = displayUnder(point, all);
  if (!display) return;
  const Rect& screen = display->frame;
  const auto features = DragFeatures::make(trace_, screen, NeighbourEdges::around(*display, all));
  if (!features || !shadow) return;
  const auto intended = DragZone::action(point, *display, DragIntentModel::reach, DragZone::cornerReach);
  shadow->release(dragged_->id, *features, {screen.width, screen.height}, snapped, intended);
}

std::vector<DisplayInfo> DragWatcher::displays() const {
  const auto windows = ports_.windows.lock();
  return windows ? windows->displays() : std::vector<DisplayInfo>{};
}

}  // namespace tilwin
