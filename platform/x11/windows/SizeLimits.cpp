#include "platform/x11/windows/SizeLimits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace tilwin::x11 {

namespace {

constexpr std::size_t flagsAt = 0;
constexpr std::size_t gravityAt = 17;
constexpr std::uint32_t gravityGiven = 1U << 9U;
constexpr std::uint32_t proportionsGiven = 1U << 7U;

/// Where a size is in the property, and the flag without which it does not count.
struct Field {
  std::uint32_t given;
  std::size_t width;
  Size SizeLimits::*size;
};
/// The base size is the least one unless a minimum is given too.
constexpr std::array fields{Field{1U << 8U, 15, &SizeLimits::least}, Field{1U << 4U, 5, &SizeLimits::least},
                            Field{1U << 5U, 7, &SizeLimits::most}, Field{1U << 6U, 9, &SizeLimits::step}};

bool isGravity(std::uint32_t number) {
  return number >= XCB_GRAVITY_NORTH_WEST && number <= XCB_GRAVITY_STATIC;
}

bool isLength(std::uint32_t number) { return number >= 1 && number <= Rect::farthest; }

/// How far right and down the point is that a gravity names, from the frame's corner at 0 to the one
/// opposite at 1. In the order of the protocol's numbers, which begin at 1 with north-west.
constexpr std::array<Point, 9> gravityPoints{
    {{0, 0}, {0.5, 0}, {1, 0}, {0, 0.5}, {0.5, 0.5}, {1, 0.5}, {0, 1}, {0.5, 1}, {1, 1}}};

double clampedLength(double length, double least, double most) {
  return std::clamp(length, least, std::max(least, most));
}

}  // namespace

SizeLimits SizeLimits::fromHints(const std::vector<std::uint32_t>& numbers) {
  SizeLimits result;
  if (numbers.empty()) return result;
  const std::uint32_t flags = numbers[flagsAt];
  for (const auto& field : fields) {
    if ((flags & field.given) == 0 || numbers.size() <= field.width + 1) continue;
    Size& size = result.*field.size;
    if (isLength(numbers[field.width])) size.width = numbers[field.width];
    if (isLength(numbers[field.width + 1])) size.height = numbers[field.width + 1];
  }
  result.keepsProportions = (flags & proportionsGiven) != 0;
  if ((flags & gravityGiven) != 0 && numbers.size() > gravityAt && isGravity(numbers[gravityAt])) {
    result.gravity = numbers[gravityAt];
  }
  return result;
}

Size SizeLimits::clamped(Size size) const {
  return {clampedLength(size.width, least.width, most.width),
          clampedLength(size.height, least.height, most.height)};
}

bool SizeLimits::mayKeep(Size present, Size asked) const {
  const Size granted = clamped(asked);
  return keepsProportions || (std::abs(granted.width - present.width) < step.width &&
                              std::abs(granted.height - present.height) < step.height);
}

Point positionByGravity(std::uint32_t gravity, const Rect& frame, const Rect& client) {
  if (gravity == XCB_GRAVITY_STATIC) return {client.x, client.y};
  const bool isNamed = gravity >= 1 && gravity <= gravityPoints.size();
  const Point share = isNamed ? gravityPoints.at(gravity - 1) : gravityPoints.front();
  return {frame.x + share.x * (frame.width - client.width),
          frame.y + share.y * (frame.height - client.height)};
}

}  // namespace tilwin::x11
