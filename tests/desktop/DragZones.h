#pragma once

#include <array>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/Pixels.h"

namespace tilwin::desktop {

/// Where a dragged window is released, and the frame it should then have. Written by hand, so that the
/// program is not compared with itself.
struct DragExample {
  const char* action = "";  ///< raw value, in messages and file names
  PixelPoint pointer;
  Rect frame;
};

/// On a display of 1920×1080 points without panels.
inline constexpr std::array<DragExample, 8> oneDisplayDrags{{
    {"leftHalf", {0, 540}, {0, 0, 960, 1080}},
    {"rightHalf", {1919, 540}, {960, 0, 960, 1080}},
    {"maximize", {960, 0}, {0, 0, 1920, 1080}},
    {"bottomHalf", {960, 1079}, {0, 540, 1920, 540}},
    {"topLeft", {0, 0}, {0, 0, 960, 540}},
    {"topRight", {1919, 0}, {960, 0, 960, 540}},
    {"bottomLeft", {0, 1079}, {0, 540, 960, 540}},
    {"bottomRight", {1919, 1079}, {960, 540, 960, 540}},
}};

/// The same display split after 1200 points. All but the first zone are on the right part, at the largest
/// distance from its edges that still snaps.
inline constexpr std::array<DragExample, 9> twoDisplayDrags{{
    {"rightHalf-of-left", {1194, 540}, {600, 0, 600, 1080}},
    {"leftHalf", {1206, 540}, {1200, 0, 360, 1080}},
    {"rightHalf", {1914, 540}, {1560, 0, 360, 1080}},
    {"maximize", {1560, 6}, {1200, 0, 720, 1080}},
    {"bottomHalf", {1560, 1074}, {1200, 540, 720, 540}},
    {"topLeft", {1260, 6}, {1200, 0, 360, 540}},
    {"topRight", {1914, 60}, {1560, 0, 360, 540}},
    {"bottomLeft", {1206, 1020}, {1200, 540, 360, 540}},
    {"bottomRight", {1860, 1074}, {1560, 540, 360, 540}},
}};

}  // namespace tilwin::desktop
