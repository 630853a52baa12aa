#include "core/layouts/DisplaySignature.h"

#include <cmath>
#include <cstdint>

#include "core/geometry/DisplayInfo.h"

namespace tilwin {
namespace {

/// Truncated toward zero. Display coordinates are finite and small enough for the cast.
std::string whole(double value) { return std::to_string(static_cast<std::int64_t>(std::trunc(value))); }

}  // namespace

DisplaySignature::DisplaySignature(const std::vector<DisplayInfo>& displays) {
  for (const DisplayInfo& display : DisplayOrder::sorted(displays)) {
    const Rect& frame = display.frame;
    if (!key.empty()) key += "|";
    key += whole(frame.width) + "x" + whole(frame.height) + "@" + whole(frame.x) + "," + whole(frame.y);
  }
}

}  // namespace tilwin
