#include "core/geometry/Rect.h"

#include <algorithm>
#include <cmath>

#include "core/support/Hash.h"

namespace tilwin {

bool Rect::isClose(const Rect& to, double tolerance) const {
  return std::abs(x - to.x) <= tolerance && std::abs(y - to.y) <= tolerance &&
         std::abs(width - to.width) <= tolerance && std::abs(height - to.height) <= tolerance;
}

bool Rect::isPlaceable() const {
  const auto isNear = [](double edge) { return std::abs(edge) <= farthest; };
  return isNear(x) && isNear(y) && isNear(maxX()) && isNear(maxY());
}

double Rect::overlapFraction(const Rect& with) const {
  if (!(width > 0 && height > 0)) return 0;
  const double sharedWidth = std::min(maxX(), with.maxX()) - std::max(x, with.x);
  const double sharedHeight = std::min(maxY(), with.maxY()) - std::max(y, with.y);
  if (!(sharedWidth > 0 && sharedHeight > 0)) return 0;
  return (sharedWidth * sharedHeight) / (width * height);
}

Rect Rect::moved(const Rect& into) const {
  const double newWidth = std::min(width, into.width);
  const double newHeight = std::min(height, into.height);
  return {std::min(std::max(x, into.x), into.maxX() - newWidth),
          std::min(std::max(y, into.y), into.maxY() - newHeight), newWidth, newHeight};
}

Rect Rect::inset(double margin) const {
  return {x + margin, y + margin, std::max(width - 2 * margin, 1.0), std::max(height - 2 * margin, 1.0)};
}

Rect Rect::rounded() const { return {std::round(x), std::round(y), std::round(width), std::round(height)}; }

}  // namespace tilwin

std::size_t std::hash<tilwin::Rect>::operator()(const tilwin::Rect& rect) const noexcept {
  return tilwin::hashOf(rect.x, rect.y, rect.width, rect.height);
}
