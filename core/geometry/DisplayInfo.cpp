#include "core/geometry/DisplayInfo.h"

#include "core/support/Hash.h"

std::size_t std::hash<tilwin::DisplayInfo>::operator()(const tilwin::DisplayInfo& display) const noexcept {
  return tilwin::hashOf(display.id, display.frame, display.visibleFrame, display.isPrimary);
}
