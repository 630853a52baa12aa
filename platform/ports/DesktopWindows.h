#pragma once

#include <cstdint>
#include <optional>

#include "core/geometry/Rect.h"
#include "core/geometry/WindowProvider.h"

namespace tilwin {

/// A `WindowProvider` that can also follow a window while the user drags it. Frames and points are in points,
/// in global desktop coordinates.
class DesktopWindows : public WindowProvider {
public:
  using WindowProvider::WindowProvider;

  /// The actual frame of the window at this moment, which may differ from the one it was asked to take.
  /// Nothing if this provider did not issue the id or the window is closed.
  [[nodiscard]] virtual std::optional<Rect> frame(std::int64_t of) = 0;
  /// The window with the keyboard focus; while this program, a menu or a panel has it, the window that had it
  /// before, if that is still open and not minimised.
  /// By default the focused one, for desktops where neither menus nor panels take the focus.
  [[nodiscard]] virtual std::optional<WindowInfo> lastFocusedWindow() { return focusedWindow(); }
  /// The topmost window at a point, with its actual frame. Nothing if there is none, it belongs to this
  /// program, or it is one that is never moved, such as a panel or one that its window manager was seen to
  /// keep in place.
  [[nodiscard]] virtual std::optional<WindowInfo> window(Point at) = 0;
};

}  // namespace tilwin
