#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin {

/// One connected display. Frames are in the global desktop space, in points (see `Rect`).
struct DisplayInfo {
  std::uint32_t id = 0;  ///< the desktop's own number for it
  Rect frame{};          ///< the whole display
  Rect visibleFrame{};   ///< the part not covered by panels and docks; windows are placed inside it
  bool isPrimary = false;

  bool operator==(const DisplayInfo&) const = default;

  /// The display that covers most of the rectangle; the primary one if none overlaps it. Points into
  /// `displays`; null only if that is empty.
  [[nodiscard]] static const DisplayInfo* covering(const Rect& rect,
                                                   const std::vector<DisplayInfo>& displays);
};

/// The order of displays wherever one has an index: by the x of its frame, then by its y.
struct DisplayOrder {
  [[nodiscard]] static bool precedes(const DisplayInfo& first, const DisplayInfo& second);
  /// A stable sort: displays at the same position keep their order.
  [[nodiscard]] static std::vector<DisplayInfo> sorted(std::vector<DisplayInfo> displays);
};

}  // namespace tilwin

template <>
struct std::hash<tilwin::DisplayInfo> {
  std::size_t operator()(const tilwin::DisplayInfo& display) const noexcept;
};
