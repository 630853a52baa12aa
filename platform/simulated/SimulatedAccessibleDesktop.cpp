#include "platform/simulated/SimulatedAccessibleDesktop.h"

#include <algorithm>
#include <variant>

#include "platform/ports/Accessibility.h"

namespace tilwin {

std::int32_t SimulatedAccessibleDesktop::launch(RunningApplication application) {
  if (application.processID == 0) application.processID = ++lastProcess_;
  const Node node = tree.applicationNode(application.processID);
  tree.give(node, accessibility::role, "AXApplication");
  workspace.running.push_back(application);
  showWindows(application.processID);
  return application.processID;
}

void SimulatedAccessibleDesktop::activate(std::int32_t processID) {
  const auto found =
      std::find_if(workspace.running.begin(), workspace.running.end(),
                   [&](const RunningApplication& candidate) { return candidate.processID == processID; });
  if (found != workspace.running.end()) workspace.frontmost = *found;
}

SimulatedAccessibleDesktop::Node SimulatedAccessibleDesktop::open(std::int32_t processID,
                                                                  const AccessibleWindow& window) {
  const Node node = tree.add(processID);
  tree.give(node, accessibility::role, std::string(accessibility::windowRole));
  if (window.subrole) tree.give(node, accessibility::subrole, *window.subrole);
  tree.give(node, accessibility::title, window.title);
  tree.give(node, accessibility::minimized, window.isMinimized);
  tree.give(node, accessibility::parent, tree.reference(tree.applicationNode(processID)));
  tree.setLeastSize(node, window.least);
  stack_.insert(stack_.begin(), {node, processID});
  place(node, window.frame);
  showWindows(processID);
  return node;
}

void SimulatedAccessibleDesktop::close(Node window) {
  const std::int32_t processID = processOf(window);
  std::erase_if(stack_, [&](const Opened& opened) { return opened.node == window; });
  tree.remove(window);
  showWindows(processID);
}

void SimulatedAccessibleDesktop::focus(Node window) {
  tree.give(window, accessibility::minimized, false);
  raise(window);
  showWindows(processOf(window));
  activate(processOf(window));
}

void SimulatedAccessibleDesktop::minimize(Node window) {
  tree.give(window, accessibility::minimized, true);
  tree.uncover(window);
  showWindows(processOf(window));
}

void SimulatedAccessibleDesktop::place(Node window, const Rect& frame) {
  tree.give(window, accessibility::position, Point{frame.x, frame.y});
  tree.give(window, accessibility::size, Size{frame.width, frame.height});
  raise(window);
}

std::optional<Rect> SimulatedAccessibleDesktop::standing(Node window) const {
  const auto positionHeld = tree.held(window, accessibility::position);
  const auto sizeHeld = tree.held(window, accessibility::size);
  const auto* position = std::get_if<Point>(&positionHeld);
  const auto* size = std::get_if<Size>(&sizeHeld);
  if (position == nullptr || size == nullptr) return std::nullopt;
  return Rect{position->x, position->y, size->width, size->height};
}

SimulatedAccessibleDesktop::Node SimulatedAccessibleDesktop::nest(Node inside, std::string_view role) {
  const Node node = tree.add(tree.owningProcess(tree.reference(inside)).value_or(0));
  tree.give(node, accessibility::role, std::string(role));
  tree.give(node, accessibility::parent, tree.reference(inside));
  return node;
}

std::int32_t SimulatedAccessibleDesktop::processOf(Node window) const {
  const auto found =
      std::find_if(stack_.begin(), stack_.end(), [&](const Opened& opened) { return opened.node == window; });
  return found == stack_.end() ? 0 : found->processID;
}

bool SimulatedAccessibleDesktop::isMinimized(Node window) const {
  return tree.held(window, accessibility::minimized) == AccessibilityValue(true);
}

void SimulatedAccessibleDesktop::raise(Node window) {
  const auto found =
      std::find_if(stack_.begin(), stack_.end(), [&](const Opened& opened) { return opened.node == window; });
  if (found != stack_.end()) std::rotate(stack_.begin(), found, found + 1);
  tree.uncover(window);
  if (isMinimized(window)) return;
  if (const auto frame = standing(window)) tree.cover(*frame, window);
}

/// Updates the program's list of windows and its focused window.
void SimulatedAccessibleDesktop::showWindows(std::int32_t processID) {
  const Node application = tree.applicationNode(processID);
  std::vector<AccessibilityElementRef> windows;
  AccessibilityElementRef focused;
  for (const Opened& opened : stack_) {
    if (opened.processID != processID) continue;
    windows.push_back(tree.reference(opened.node));
    if (!focused && !isMinimized(opened.node)) focused = windows.back();
  }
  tree.give(application, accessibility::windows, windows);
  tree.take(application, accessibility::focusedWindow);
  tree.take(application, accessibility::mainWindow);
  if (!focused) return;
  tree.give(application, accessibility::focusedWindow, focused);
  tree.give(application, accessibility::mainWindow, focused);
}

}  // namespace tilwin
