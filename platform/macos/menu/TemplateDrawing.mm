#include "platform/macos/menu/TemplateDrawing.h"

#include <algorithm>

namespace tilwin::macos {
namespace {

void drawShape(const TemplateImage::Shape& shape) {
  const Rect& frame = shape.frame;
  NSBezierPath* const path =
      [NSBezierPath bezierPathWithRoundedRect:NSMakeRect(frame.x, frame.y, frame.width, frame.height)
                                      xRadius:shape.cornerRadius
                                      yRadius:shape.cornerRadius];
  [[[NSColor blackColor] colorWithAlphaComponent:shape.opacity] set];
  if (shape.lineWidth > 0) {
    [path setLineWidth:shape.lineWidth];
    [path stroke];
  } else {
    [path fill];
  }
}

}  // namespace

Held<NSImage*> templateImage(const TemplateImage& image) {
  const auto shapes = image.shapes;
  NSImage* const drawn = [NSImage imageWithSize:NSMakeSize(image.size.width, image.size.height)
                                        flipped:YES
                                 drawingHandler:^BOOL(NSRect) {
                                   std::ranges::for_each(shapes, drawShape);
                                   return YES;
                                 }];
  [drawn setTemplate:YES];
  return retained(drawn);
}

}  // namespace tilwin::macos
