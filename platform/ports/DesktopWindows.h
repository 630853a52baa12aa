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
  /// The topmost window at a point, with its actual frame. Nothing if there is none, it belongs to this
  /// program, or it is one that is never moved, such as a panel.
  [[nodiscard]] virtual std::optional<WindowInfo> window(Point at) = 0;
};

}  // namespace tilwin
