#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "app/windows/AXWindowProvider.h"
#include "platform/simulated/SimulatedAccessibleDesktop.h"
#include "tests/app/AccessibilityUnderTest.h"
#include "tests/contract/SimulatedInputWorld.h"

namespace tilwin::contract {

/// Windows behind accessibility, as macOS shows them. None of them rounds its size: such a window is reported
/// where it stands there, so the suite about those is not for this world.
class AccessibilityWorld : public SimulatedInputWorld {
public:
  AccessibilityWorld() {
    windows_.screens.connected = {{{0, 0, 1440, 900}, {0, 60, 1440, 815}, 1},
                                  {{1440, -24, 1280, 1024}, {1440, -24, 1280, 999}, 2}};
  }

  std::shared_ptr<DesktopWindows> provider() override { return provider_; }

  Window open(const NewWindow& window) override {
    return windows_.open(processOf(window.bundleID),
                         {.title = window.title,
                          .frame = window.frame,
                          .subrole = window.isDialog ? "AXDialog" : "AXStandardWindow",
                          .least = {window.minimumWidth, window.minimumHeight}});
  }
  void close(Window window) override { windows_.close(window); }
  void focus(Window window) override { windows_.focus(window); }
  void minimize(Window window) override { windows_.minimize(window); }
  void moveByHand(Window window, const Rect& frame) override { windows_.place(window, frame); }
  std::optional<Rect> standing(Window window) override { return windows_.standing(window); }

  /// The green button makes a window as large as it can be; that is a frame like any other.
  void maximize(Window window) override {
    normal_[window] = windows_.standing(window).value_or(Rect());
    windows_.place(window, maximal_);
  }
  void unmaximize(Window window) override { windows_.place(window, normal_[window]); }
  bool isMaximized(Window window) override { return windows_.standing(window) == maximal_; }

  void takeRoomAtTop(double points) override {
    windows_.screens.connected.front().visibleFrame.height -= points;
    desktop_.screens.tell();
  }

private:
  std::int32_t processOf(const std::string& bundleID) {
    const auto found = processes_.find(bundleID);
    if (found != processes_.end()) return found->second;
    return processes_[bundleID] = windows_.launch({.bundleIdentifier = bundleID, .localizedName = bundleID});
  }

  const Rect maximal_{0, 25, 1440, 815};
  std::map<Window, Rect> normal_;
  SimulatedAccessibleDesktop windows_;
  std::map<std::string, std::int32_t> processes_;
  std::shared_ptr<Accessibility> accessibility_ = accessibilityOver(windows_.tree);
  std::shared_ptr<DesktopWindows> provider_ =
      std::make_shared<AXWindowProvider>(*accessibility_, windows_.workspace, windows_.screens);
};

}  // namespace tilwin::contract
