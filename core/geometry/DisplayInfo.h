#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin {

/// One connected display, in the global desktop space.
struct DisplayInfo {
  std::uint32_t id = 0;  ///< the number by which the desktop knows it
  Rect frame{};          ///< the whole display
  Rect visibleFrame{};   ///< what bars and docks leave free; windows are placed in this
  bool isPrimary = false;

  bool operator==(const DisplayInfo&) const = default;
};

/// The one ordering of displays wherever a display has an index: by the frame's x, then by its y.
struct DisplayOrder {
  [[nodiscard]] static bool precedes(const DisplayInfo& first, const DisplayInfo& second);
  /// Displays at the same place keep the order they came in.
  [[nodiscard]] static std::vector<DisplayInfo> sorted(std::vector<DisplayInfo> displays);
};

}  // namespace tilwin

template <>
struct std::hash<tilwin::DisplayInfo> {
  std::size_t operator()(const tilwin::DisplayInfo& display) const noexcept;
};
