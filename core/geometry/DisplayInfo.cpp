#include "core/geometry/DisplayInfo.h"

#include <algorithm>

#include "core/support/Hash.h"

namespace tilwin {

bool DisplayOrder::precedes(const DisplayInfo& first, const DisplayInfo& second) {
  if (first.frame.x != second.frame.x) return first.frame.x < second.frame.x;
  return first.frame.y < second.frame.y;
}

std::vector<DisplayInfo> DisplayOrder::sorted(std::vector<DisplayInfo> displays) {
  std::stable_sort(displays.begin(), displays.end(), precedes);
  return displays;
}

}  // namespace tilwin

std::size_t std::hash<tilwin::DisplayInfo>::operator()(const tilwin::DisplayInfo& display) const noexcept {
  return tilwin::hashOf(display.id, display.frame, display.visibleFrame, display.isPrimary);
}
