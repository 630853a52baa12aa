#include "platform/x11/windows/Margins.h"

#include <algorithm>

namespace tilwin::x11 {

Margins Margins::fromProperty(const std::vector<std::uint32_t>& numbers) {
  if (numbers.size() < 4) return {};
  const auto at = [&](std::size_t index) { return static_cast<double>(numbers[index]); };
  return {at(0), at(1), at(2), at(3)};
}

Rect FrameShape::frameOfClient(const Rect& client) const {
  return {client.x - decoration.left + shadow.left, client.y - decoration.top + shadow.top,
          client.width + decoration.left + decoration.right - shadow.left - shadow.right,
          client.height + decoration.top + decoration.bottom - shadow.top - shadow.bottom};
}

Size FrameShape::frameSizeOf(Size client) const {
  const Rect frame = frameOfClient({0, 0, client.width, client.height});
  return {frame.width, frame.height};
}

Rect FrameShape::requestForFrame(const Rect& frame) const {
  const double width = frame.width - decoration.left - decoration.right + shadow.left + shadow.right;
  const double height = frame.height - decoration.top - decoration.bottom + shadow.top + shadow.bottom;
  return {frame.x - shadow.left, frame.y - shadow.top, std::max(width, 1.0), std::max(height, 1.0)};
}

}  // namespace tilwin::x11
