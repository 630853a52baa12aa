#include "platform/macos/menu/TemplateDrawing.h"

#include <gtest/gtest.h>

namespace tilwin::macos {
namespace {

/// A line around the whole, a filled half and a paler shape that reaches out of it, at the top left.
const TemplateImage sample{.size = {18, 18},
                           .shapes = {{.frame = {1.5, 2.5, 15, 13}, .lineWidth = 1},
                                      {.frame = {4, 5, 4, 8}},
                                      {.frame = {10, 5, 4, 3}, .opacity = 0.5}}};

/// The picture drawn at this many pixels to a point.
class Drawn {
public:
  explicit Drawn(int scale) : scale_(scale) {
    const AutoreleasePool pool;
    const CGFloat side = 18.0 * scale;
    const auto canvas = owned([[NSImage alloc] initWithSize:NSMakeSize(side, side)]);
    [canvas.get() lockFocus];
    [templateImage(sample).get() drawInRect:NSMakeRect(0, 0, side, side)
                                   fromRect:NSZeroRect
                                  operation:NSCompositeSourceOver
                                   fraction:1];
    pixels_ = owned([[NSBitmapImageRep alloc] initWithFocusedViewRect:NSMakeRect(0, 0, side, side)]);
    [canvas.get() unlockFocus];
  }

  /// How opaque the pixel is whose top-left corner is at this point of the picture.
  [[nodiscard]] double opacity(double x, double y) const { return [colour(x, y) alphaComponent]; }
  [[nodiscard]] NSColor* colour(double x, double y) const {
    return [pixels_.get() colorAtX:static_cast<NSInteger>(x * scale_) y:static_cast<NSInteger>(y * scale_)];
  }

private:
  int scale_;
  Held<NSBitmapImageRep*> pixels_;
};

class TemplateDrawing : public testing::TestWithParam<int> {
protected:
  Drawn drawn{GetParam()};
  double pixel = 1.0 / GetParam();
};

constexpr double close = 0.02;

}  // namespace

TEST_P(TemplateDrawing, AFilledShapeHasSharpEdges) {
  EXPECT_NEAR(drawn.opacity(4, 5), 1, close);
  EXPECT_NEAR(drawn.opacity(8 - pixel, 13 - pixel), 1, close);
  EXPECT_NEAR(drawn.opacity(4 - pixel, 5), 0, close);
  EXPECT_NEAR(drawn.opacity(4, 5 - pixel), 0, close);
  EXPECT_NEAR(drawn.opacity(8, 13 - pixel), 0, close);
  EXPECT_NEAR(drawn.opacity(8 - pixel, 13), 0, close);
}

TEST_P(TemplateDrawing, AnOutlineLiesOnTheEdge) {
  EXPECT_NEAR(drawn.opacity(9, 2), 1, close);
  EXPECT_NEAR(drawn.opacity(9, 3 - pixel), 1, close);
  EXPECT_NEAR(drawn.opacity(9, 2 - pixel), 0, close);
  EXPECT_NEAR(drawn.opacity(9, 3), 0, close);
  EXPECT_NEAR(drawn.opacity(1, 9), 1, close);
  EXPECT_NEAR(drawn.opacity(17 - pixel, 9), 1, close);
}

TEST_P(TemplateDrawing, AShapeMayBePalerAndTheOriginIsTheTopLeftCorner) {
  EXPECT_NEAR(drawn.opacity(11, 6), 0.5, close);
  EXPECT_NEAR(drawn.opacity(11, 11), 0, close);
}

TEST_P(TemplateDrawing, ItIsBlack) {
  NSColor* const colour = [drawn.colour(5, 6) colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
  EXPECT_NEAR([colour redComponent] + [colour greenComponent] + [colour blueComponent], 0, close);
}

INSTANTIATE_TEST_SUITE_P(Scales, TemplateDrawing, testing::Values(1, 2));

}  // namespace tilwin::macos
