#include "platform/x11/overlay/RoundedFrame.h"

#include <algorithm>

namespace tilwin::x11 {

namespace {

/// Samples per pixel in each direction for antialiasing: 256 in all, about one for each opacity of a byte.
constexpr int tries = 16;

}  // namespace

RoundedFrame::RoundedFrame(int width, int height, int radius, int border)
    : width_(width),
      height_(height),
      radius_(std::min({radius, width / 2, height / 2})),
      border_(std::min({border, width / 2, height / 2})),
      corner_(std::max(radius_, border_)) {}

bool RoundedFrame::isWithin(double x, double y, int inset) const {
  if (x < inset || y < inset) return false;
  const double bend = std::max(0, radius_ - inset);
  const double acrossFromCentre = std::max(0.0, inset + bend - x);
  const double downFromCentre = std::max(0.0, inset + bend - y);
  return acrossFromCentre * acrossFromCentre + downFromCentre * downFromCentre <= bend * bend;
}

RoundedFrame::Cover RoundedFrame::cornerCover(int x, int y) const {
  int outline = 0;
  int inside = 0;
  for (int down = 0; down < tries; ++down) {
    for (int across = 0; across < tries; ++across) {
      const double tryX = x + (across + 0.5) / tries;
      const double tryY = y + (down + 0.5) / tries;
      if (isWithin(tryX, tryY, 0)) ++outline;
      if (isWithin(tryX, tryY, border_)) ++inside;
    }
  }
  constexpr double all = tries * tries;
  return {.border = (outline - inside) / all, .inside = inside / all};
}

std::array<PixelRect, 4> RoundedFrame::sides() const {
  const int across = width_ - 2 * corner_;
  const int down = height_ - 2 * corner_;
  return {{{corner_, 0, across, border_},
           {corner_, height_ - border_, across, border_},
           {0, corner_, border_, down},
           {width_ - border_, corner_, border_, down}}};
}

int RoundedFrame::firstWithin(int row, int inset) const {
  int column = 0;
  while (column < corner_ && !isWithin(column + 0.5, row + 0.5, inset)) ++column;
  return column;
}

std::vector<PixelRect> RoundedFrame::ring() const {
  const auto straight = sides();
  std::vector<PixelRect> result(straight.begin() + 2, straight.end());
  for (int row = 0; row < corner_; ++row) {
    const int start = firstWithin(row, 0);
    const int bottomRow = height_ - 1 - row;
    if (row < border_) {
      for (const int y : {row, bottomRow}) result.push_back({start, y, width_ - 2 * start, 1});
      continue;
    }
    const int thickness = firstWithin(row, border_) - start;
    for (const int y : {row, bottomRow}) {
      result.push_back({start, y, thickness, 1});
      result.push_back({width_ - start - thickness, y, thickness, 1});
    }
  }
  return result;
}

}  // namespace tilwin::x11
