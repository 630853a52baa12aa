#include "core/geometry/DisplayInfo.h"

#include <algorithm>

#include "core/support/Hash.h"

namespace tilwin {

const DisplayInfo* DisplayInfo::covering(const Rect& rect, const std::vector<DisplayInfo>& displays) {
  const DisplayInfo* best = nullptr;
  double most = 0;
  for (const DisplayInfo& candidate : displays) {
    const double share = rect.overlapFraction(candidate.frame);
    if (share > most) {
      best = &candidate;
      most = share;
    }
  }
  if (best != nullptr || displays.empty()) return best;
  const auto primary = std::find_if(displays.begin(), displays.end(),
                                    [](const DisplayInfo& display) { return display.isPrimary; });
  return primary == displays.end() ? &displays.front() : &*primary;
}

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
