#include "core/geometry/DisplayOrder.h"

#include <algorithm>

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
