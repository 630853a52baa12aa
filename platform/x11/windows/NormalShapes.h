#pragma once

#include <xcb/xcb.h>

#include <span>
#include <unordered_map>

#include "platform/x11/windows/OpenWindows.h"
#include "platform/x11/windows/WindowReader.h"

namespace tilwin::x11 {

/// Remembers the decoration and shadow that windows have while they are neither maximised nor full screen.
/// One that leaves such a state gets them back, so a request for a frame can count on them at once.
class NormalShapes {
public:
  void note(const WindowSnapshot& window) {
    if (!window.states.any()) shapes_[window.window] = window.shape;
  }
  /// The shape that the window had when it was last seen in no such state; `otherwise` if it never was.
  [[nodiscard]] FrameShape of(xcb_window_t window, const FrameShape& otherwise) const {
    const auto known = shapes_.find(window);
    return known == shapes_.end() ? otherwise : known->second;
  }
  void forget(xcb_window_t window) { shapes_.erase(window); }
  /// Forgets all other windows: the server may give their numbers to new ones.
  void keepOnly(std::span<const xcb_window_t> open) { keepOpen(shapes_, open); }

private:
  std::unordered_map<xcb_window_t, FrameShape> shapes_;
};

}  // namespace tilwin::x11
