#pragma once

#include <cstdint>
#include <optional>

#include "core/geometry/Rect.h"
#include "core/geometry/WindowProvider.h"

namespace tilwin {

/// The windows of a desktop with what is needed to watch one being dragged.
class DesktopWindows : public WindowProvider {
public:
  using WindowProvider::WindowProvider;

  /// Where the window really stands at this moment; nothing when it is not known or has gone.
  [[nodiscard]] virtual std::optional<Rect> frame(std::int64_t of) = 0;
  /// The window of another program under a point, its frame as it really stands.
  [[nodiscard]] virtual std::optional<WindowInfo> window(Point at) = 0;
};

}  // namespace tilwin
