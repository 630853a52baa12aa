#pragma once

#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin {

/// A small picture of rounded rectangles in one colour, which the desktop chooses to suit its panel. It is
/// drawn at any scale from these shapes. Lengths are points; the origin is the top-left corner.
struct TemplateImage {
  struct Shape {
    Rect frame{};
    double cornerRadius = 0;
    double lineWidth = 0;  ///< of an outline, centred on the edge; 0 fills the shape
    double opacity = 1;

    bool operator==(const Shape&) const = default;
  };

  Size size{};
  std::vector<Shape> shapes{};  ///< from the bottom to the top

  bool operator==(const TemplateImage&) const = default;
};

}  // namespace tilwin
