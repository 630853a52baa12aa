#include "platform/simulated/SimulatedWindows.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tilwin {
namespace {

double allowed(double length, double minimum, double step) {
  return std::max(std::max(std::floor(length / step), 1.0) * step, minimum);
}

}  // namespace

SimulatedWindows::SimulatedWindows(std::vector<DisplayInfo> displays) : displays_(std::move(displays)) {}

void SimulatedWindows::setDisplays(std::vector<DisplayInfo> displays) {
  displays_ = std::move(displays);
  if (onDisplaysChanged) onDisplaysChanged();
}

bool SimulatedWindows::reserve(std::uint32_t displayID, const Struts& struts) {
  const auto display = std::find_if(displays_.begin(), displays_.end(),
                                    [&](const DisplayInfo& candidate) { return candidate.id == displayID; });
  if (display == displays_.end()) return false;
  const Rect& frame = display->frame;
  display->visibleFrame = {frame.x + struts.left, frame.y + struts.top,
                           frame.width - struts.left - struts.right,
                           frame.height - struts.top - struts.bottom};
  if (onDisplaysChanged) onDisplaysChanged();
  return true;
}

SimulatedWindows::Handle SimulatedWindows::open(SimulatedWindow window) {
  const Handle handle = ++lastHandle_;
  const bool takesFocus = !window.isMinimized;
  windows_.emplace(handle, std::move(window));
  raise(handle);
  if (takesFocus) setFocused(handle);
  return handle;
}

void SimulatedWindows::close(Handle handle) {
  windows_.erase(handle);
  beforeMaximizing_.erase(handle);
  std::erase(stack_, handle);
  if (focused_ == handle) focusFront();
}

void SimulatedWindows::focus(Handle handle) {
  SimulatedWindow* window = find(handle);
  if (window == nullptr) return;
  window->isMinimized = false;
  raise(handle);
  setFocused(handle);
}

void SimulatedWindows::minimize(Handle handle) {
  SimulatedWindow* window = find(handle);
  if (window == nullptr) return;
  window->isMinimized = true;
  if (focused_ == handle) focusFront();
}

void SimulatedWindows::maximize(Handle handle) {
  SimulatedWindow* window = find(handle);
  if (window == nullptr || window->isMaximized || displays_.empty()) return;
  beforeMaximizing_[handle] = window->frame;
  window->isMaximized = true;
  window->frame = displayOf(window->frame).visibleFrame;
}

void SimulatedWindows::unmaximize(Handle handle) {
  SimulatedWindow* window = find(handle);
  if (window == nullptr || !window->isMaximized) return;
  window->isMaximized = false;
  if (const auto before = beforeMaximizing_.extract(handle)) window->frame = before.mapped();
}

void SimulatedWindows::moveByHand(Handle handle, const Rect& frame) {
  if (SimulatedWindow* window = find(handle)) window->frame = frame;
}

bool SimulatedWindows::request(Handle handle, const Rect& frame) {
  ++requestCount_;
  SimulatedWindow* window = find(handle);
  if (window == nullptr || window->answer == SimulatedWindow::Answer::refuses) return false;
  if (window->answer == SimulatedWindow::Answer::ignores || window->isMaximized) return true;
  window->frame = {frame.x, frame.y, allowed(frame.width, window->minimumWidth, window->widthStep),
                   allowed(frame.height, window->minimumHeight, window->heightStep)};
  return true;
}

SimulatedWindow* SimulatedWindows::find(Handle handle) {
  const auto found = windows_.find(handle);
  return found == windows_.end() ? nullptr : &found->second;
}

const DisplayInfo& SimulatedWindows::displayOf(const Rect& frame) const {
  return *std::max_element(displays_.begin(), displays_.end(),
                           [&](const DisplayInfo& first, const DisplayInfo& second) {
                             return frame.overlapFraction(first.frame) < frame.overlapFraction(second.frame);
                           });
}

void SimulatedWindows::raise(Handle handle) {
  std::erase(stack_, handle);
  stack_.insert(stack_.begin(), handle);
}

void SimulatedWindows::focusFront() {
  const auto front = std::find_if(stack_.begin(), stack_.end(),
                                  [this](Handle handle) { return !find(handle)->isMinimized; });
  setFocused(front == stack_.end() ? std::nullopt : std::optional(*front));
}

void SimulatedWindows::setFocused(std::optional<Handle> handle) {
  focused_ = handle;
  if (handle && !find(*handle)->isOfThisProgram) lastFocused_ = handle;
}

}  // namespace tilwin
