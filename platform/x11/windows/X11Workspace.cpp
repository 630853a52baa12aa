#include "platform/x11/windows/X11Workspace.h"

#include <algorithm>
#include <utility>

namespace tilwin::x11 {
namespace {

RunningApplication ownerOf(const WindowInfo& window) {
  RunningApplication result{.localizedName = window.appName};
  if (!window.bundleID.empty()) result.bundleIdentifier = window.bundleID;
  return result;
}

}  // namespace

X11Workspace::X11Workspace(X11Connection& x, X11WindowProvider& windows, RunningApplication own)
    : x_(x), windows_(windows), own_(std::move(own)) {}

std::optional<RunningApplication> X11Workspace::frontmostApplication() {
  const auto active = readActiveWindow(x_, XCB_WINDOW_NONE);
  if (active && isOwn(*active)) return own_;
  const auto last = windows_.lastFocusedWindow();
  return last ? std::optional(ownerOf(*last)) : std::nullopt;
}

std::vector<RunningApplication> X11Workspace::runningApplications() {
  std::vector<RunningApplication> result;
  for (const auto& window : windows_.allWindows()) {
    auto owner = ownerOf(window);
    if (std::ranges::find(result, owner) == result.end()) result.push_back(std::move(owner));
  }
  return result;
}

}  // namespace tilwin::x11
