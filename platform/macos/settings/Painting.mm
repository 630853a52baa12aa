#include "platform/macos/settings/Painting.h"

#include <variant>

#include "platform/drawing/FormSymbols.h"

namespace tilwin::macos {
namespace {

/// Adds a shape of a symbol, on the symbol's board.
struct Adder {
  NSBezierPath* lines;
  NSBezierPath* fills;

  void operator()(const drawing::SymbolLine& line) const {
    bool isFirst = true;
    for (const auto& point : line.points) {
      const NSPoint at = NSMakePoint(point.x, point.y);
      isFirst ? [lines moveToPoint:at] : [lines lineToPoint:at];
      isFirst = false;
    }
  }

  void operator()(const drawing::SymbolBox& box) const {
    const NSRect frame = NSMakeRect(box.frame.x, box.frame.y, box.frame.width, box.frame.height);
    [lines appendBezierPathWithRoundedRect:frame xRadius:box.cornerRadius yRadius:box.cornerRadius];
    if (!box.isFilled) return;
    [fills appendBezierPathWithRoundedRect:frame xRadius:box.cornerRadius yRadius:box.cornerRadius];
  }
};

/// From the board to the area.
NSAffineTransform* placement(NSRect area, BOOL flipped) {
  NSAffineTransform* const transform = [NSAffineTransform transform];
  [transform translateXBy:area.origin.x yBy:flipped ? area.origin.y : NSMaxY(area)];
  [transform scaleXBy:area.size.width / drawing::symbolBoard
                  yBy:(flipped ? 1 : -1) * area.size.height / drawing::symbolBoard];
  return transform;
}

}  // namespace

void drawSymbol(FormSymbol symbol, NSRect area, NSColor* colour, BOOL flipped) {
  const Adder adder{.lines = [NSBezierPath bezierPath], .fills = [NSBezierPath bezierPath]};
  for (const auto& shape : drawing::symbolShapes(symbol)) std::visit(adder, shape);
  NSAffineTransform* const onArea = placement(area, flipped);
  [adder.lines transformUsingAffineTransform:onArea];
  [adder.fills transformUsingAffineTransform:onArea];
  [adder.lines setLineWidth:drawing::symbolLineWidth * area.size.width / drawing::symbolBoard];
  [adder.lines setLineCapStyle:NSRoundLineCapStyle];
  [adder.lines setLineJoinStyle:NSRoundLineJoinStyle];
  [colour set];
  [adder.fills fill];
  [adder.lines stroke];
}

void fillRounded(NSRect area, CGFloat radius, NSColor* colour) {
  [colour set];
  [[NSBezierPath bezierPathWithRoundedRect:area xRadius:radius yRadius:radius] fill];
}

void strokeRounded(NSRect area, CGFloat radius, NSColor* colour, CGFloat width) {
  const NSRect middle = NSInsetRect(area, width / 2, width / 2);
  NSBezierPath* const path = [NSBezierPath bezierPathWithRoundedRect:middle
                                                             xRadius:radius - width / 2
                                                             yRadius:radius - width / 2];
  [path setLineWidth:width];
  [colour set];
  [path stroke];
}

bool showsFocus(NSView* view) {
  NSWindow* const window = [view window];
  return [window isKeyWindow] && [window firstResponder] == view;
}

void drawFocusRing(NSRect area, CGFloat radius) {
  strokeRounded(area, radius, [NSColor keyboardFocusIndicatorColor], 2);
}

}  // namespace tilwin::macos
