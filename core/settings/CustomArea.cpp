#include "core/settings/CustomArea.h"

#include <algorithm>

#include "core/support/Utf8.h"

namespace tilwin {
namespace {

// The comparisons are false for NaN, which then becomes the lower bound.
double clampedLength(double length) {
  return length >= NormalizedRect::smallestShare ? std::min(length, 1.0) : NormalizedRect::smallestShare;
}
double clampedStart(double start, double length) { return start >= 0 ? std::min(start, 1 - length) : 0; }

}  // namespace

NormalizedRect CustomArea::clamped(const NormalizedRect& rect) {
  const double width = clampedLength(rect.width);
  const double height = clampedLength(rect.height);
  return {clampedStart(rect.x, width), clampedStart(rect.y, height), width, height};
}

std::string CustomArea::keptName(std::string_view name) {
  return std::string(Utf8::prefix(name, longestName));
}

CustomArea CustomArea::starter(std::string_view named) {
  return {.id = Uuid::random(), .name = keptName(named), .rect = {0.2, 0, 0.6, 1}};
}

}  // namespace tilwin
