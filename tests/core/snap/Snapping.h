#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/snap/SnapController.h"
#include "platform/simulated/SimulatedDesktop.h"

namespace tilwin {

/// The initial frame of windows, and the visible frame of the first display.
inline constexpr Rect somewhere{100, 100, 800, 600};
inline constexpr Rect leftHalf{0, 25, 720, 875};

/// A simulated desktop, a controller for it, and helpers for the tests.
struct Snapping {
  using Window = SimulatedWindows::Handle;
  using Event = std::pair<std::int64_t, SnapAction>;

  explicit Snapping(std::string_view displays = "1440x900+0+0", Struts primary = {.top = 25})
      : desktop(displays), controller(desktop.provider()) {
    desktop.windows.reserve(1, primary);
    controller.onEvent = [this](std::int64_t window, SnapAction action) {
      events.emplace_back(window, action);
    };
  }

  Window open(const Rect& frame) { return desktop.windows.open({.frame = frame}); }
  [[nodiscard]] Rect frame(Window window) { return desktop.windows.find(window)->frame; }
  [[nodiscard]] DisplayInfo display(std::size_t index) { return desktop.windows.displays()[index]; }
  [[nodiscard]] std::uint64_t moves() const { return desktop.windows.requestCount(); }

  SimulatedDesktop desktop;
  SnapController controller;
  std::vector<Event> events;
};

}  // namespace tilwin
