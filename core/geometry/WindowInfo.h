#pragma once

#include <cstdint>
#include <string>

#include "core/geometry/Rect.h"

namespace tilwin {

/// A snapshot of one window of another application, made by a `WindowProvider`.
struct WindowInfo {
  std::int64_t id = 0;     ///< assigned by the provider; valid only for it and only in this run
  std::string bundleID{};  ///< identifies the application; may be empty
  std::string appName{};
  std::string title{};
  Rect frame{};  ///< global desktop space, points
  bool isMinimized = false;
  std::int64_t zOrder = 0;  ///< rank in the provider's list; windows with lower ranks count as in front

  bool operator==(const WindowInfo&) const = default;
};

}  // namespace tilwin
