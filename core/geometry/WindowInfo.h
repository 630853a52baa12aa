#pragma once

#include <cstdint>
#include <string>

#include "core/geometry/Rect.h"

namespace tilwin {

/// One window of another application, as its provider saw it when asked.
struct WindowInfo {
  std::int64_t id = 0;  ///< the provider's handle; means nothing to another provider or in another run
  std::string bundleID{};
  std::string appName{};
  std::string title{};
  Rect frame{};
  bool isMinimized = false;
  std::int64_t zOrder = 0;  ///< stacking rank the provider assigned while listing

  bool operator==(const WindowInfo&) const = default;
};

}  // namespace tilwin
