#include "platform/simulated/SimulatedWindowProvider.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "core/geometry/TilePlace.h"

namespace tilwin {

SimulatedWindowProvider::SimulatedWindowProvider(SimulatedWindows& windows) : windows_(windows) {}

std::vector<DisplayInfo> SimulatedWindowProvider::displays() { return windows_.displays(); }

std::optional<WindowInfo> SimulatedWindowProvider::focusedWindow() {
  const auto focused = windows_.focused();
  if (!focused || windows_.find(*focused)->isOfThisProgram) return std::nullopt;
  return described(*focused, 0);
}

std::optional<WindowInfo> SimulatedWindowProvider::lastFocusedWindow() {
  const auto last = windows_.lastFocused();
  const SimulatedWindow* window = last ? windows_.find(*last) : nullptr;
  if (window == nullptr || window->isMinimized) return std::nullopt;
  return described(*last, 0);
}

std::vector<WindowInfo> SimulatedWindowProvider::allWindows() {
  handedOut_.clear();
  std::vector<WindowInfo> result;
  for (const auto handle : listed()) {
    result.push_back(described(handle, static_cast<std::int64_t>(result.size())));
  }
  return result;
}

/// The windows of the frontmost application first, then those of the other applications sorted by name.
/// Within an application, the front window first.
std::vector<SimulatedWindows::Handle> SimulatedWindowProvider::listed() const {
  std::vector<SimulatedWindows::Handle> handles;
  std::copy_if(windows_.stack().begin(), windows_.stack().end(), std::back_inserter(handles),
               [&](SimulatedWindows::Handle handle) {
                 const SimulatedWindow& window = *windows_.find(handle);
                 return window.isStandard && !window.isOfThisProgram;
               });
  const auto focused = windows_.focused();
  const std::string front = focused ? windows_.find(*focused)->bundleID : "";
  const auto rank = [&](SimulatedWindows::Handle handle) {
    const SimulatedWindow& window = *windows_.find(handle);
    return std::tie(window.appName, window.bundleID);
  };
  std::stable_sort(handles.begin(), handles.end(), [&](auto first, auto second) {
    const bool firstInFront = focused && windows_.find(first)->bundleID == front;
    const bool secondInFront = focused && windows_.find(second)->bundleID == front;
    if (firstInFront != secondInFront) return firstInFront;
    return rank(first) < rank(second);
  });
  return handles;
}

bool SimulatedWindowProvider::applyFrame(std::int64_t id, const Rect& frame) {
  if (!handedOut_.contains(id) || windows_.find(id) == nullptr) return false;
  const auto place = TilePlace::of(frame, windows_.find(id)->frame, windows_.displays());
  release(id);
  if (!windows_.request(id, frame)) return false;
  const SimulatedWindow& window = *windows_.find(id);
  if (window.answer != SimulatedWindow::Answer::obeys) return true;
  const Rect standing = place.frame({window.frame.width, window.frame.height});
  if (window.frame != standing) windows_.request(id, standing);
  answers_[id] = {place.reported(window.frame), window.frame};
  return true;
}

bool SimulatedWindowProvider::applyRestore(std::int64_t id, const Rect& frame) {
  const auto released = released_.extract(id);
  if (released.empty() || released.mapped().maximized != frame) {
    const bool isMoved = applyFrame(id, frame);
    released_.erase(id);
    return isMoved;
  }
  if (!applyFrame(id, released.mapped().normal)) return false;
  windows_.maximize(id);
  return true;
}

/// Ends the maximised state. What a window is restored to is what it had before the first of several moves.
void SimulatedWindowProvider::release(SimulatedWindows::Handle handle) {
  const SimulatedWindow& window = *windows_.find(handle);
  if (!window.isMaximized) return;
  const Rect maximized = window.frame;
  windows_.unmaximize(handle);
  released_.try_emplace(handle, Released{maximized, window.frame});
}

std::optional<Rect> SimulatedWindowProvider::frame(std::int64_t of) {
  const SimulatedWindow* window = handedOut_.contains(of) ? windows_.find(of) : nullptr;
  if (window == nullptr) return std::nullopt;
  return window->frame;
}

std::optional<WindowInfo> SimulatedWindowProvider::window(Point at) {
  const auto& stack = windows_.stack();
  const auto hit = std::find_if(stack.begin(), stack.end(), [&](SimulatedWindows::Handle handle) {
    const SimulatedWindow& candidate = *windows_.find(handle);
    return !candidate.isMinimized && candidate.frame.contains(at.x, at.y);
  });
  if (hit == stack.end() || windows_.find(*hit)->isOfThisProgram) return std::nullopt;
  const SimulatedWindows::Handle handle = *hit;
  const Rect standing = windows_.find(handle)->frame;
  WindowInfo info = described(handle, 0);
  info.frame = standing;
  return info;
}

WindowInfo SimulatedWindowProvider::described(SimulatedWindows::Handle handle, std::int64_t zOrder) {
  handedOut_.insert(handle);
  const SimulatedWindow& window = *windows_.find(handle);
  WindowInfo info{.id = handle,
                  .bundleID = window.bundleID,
                  .appName = window.appName,
                  .title = window.title,
                  .frame = reportedFrame(handle, window.frame),
                  .isMinimized = window.isMinimized,
                  .zOrder = zOrder};
  if (window.vanishesOnceSeen) windows_.close(handle);
  return info;
}

Rect SimulatedWindowProvider::reportedFrame(SimulatedWindows::Handle handle, const Rect& standing) {
  const auto answer = answers_.find(handle);
  if (answer == answers_.end()) return standing;
  if (answer->second.standing == standing) return answer->second.reported;
  answers_.erase(answer);
  return standing;
}

}  // namespace tilwin
