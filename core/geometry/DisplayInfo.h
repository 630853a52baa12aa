#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

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

}  // namespace tilwin

template <>
struct std::hash<tilwin::DisplayInfo> {
  std::size_t operator()(const tilwin::DisplayInfo& display) const noexcept;
};
