#include "platform/macos/settings/Painting.h"

#include <array>
#include <initializer_list>

namespace tilwin::macos {
namespace {

// Symbols are drawn on a board of 16 by 16, from the top left.

void addLine(NSBezierPath* path, std::initializer_list<NSPoint> points) {
  bool isFirst = true;
  for (const NSPoint point : points) {
    isFirst ? [path moveToPoint:point] : [path lineToPoint:point];
    isFirst = false;
  }
}

void addBox(NSBezierPath* path, NSRect box, CGFloat radius) {
  [path appendBezierPathWithRoundedRect:box xRadius:radius yRadius:radius];
}

void addDot(NSBezierPath* path, CGFloat x, CGFloat y) {
  [path appendBezierPathWithOvalInRect:NSMakeRect(x - 0.4, y - 0.4, 0.8, 0.8)];
}

void addTrash(NSBezierPath* path) {
  addLine(path, {{2.5, 4.5}, {13.5, 4.5}});
  addLine(path, {{6, 4.5}, {6, 2.5}, {10, 2.5}, {10, 4.5}});
  addLine(path, {{4, 4.5}, {4.7, 13.5}, {11.3, 13.5}, {12, 4.5}});
  addLine(path, {{6.7, 7}, {6.9, 11}});
  addLine(path, {{9.3, 7}, {9.1, 11}});
}

void addSpacing(NSBezierPath* path) {
  addBox(path, NSMakeRect(1.5, 3, 4.5, 10), 1.2);
  addBox(path, NSMakeRect(10, 3, 4.5, 10), 1.2);
  addLine(path, {{8, 5}, {8, 11}});
}

void addBehavior(NSBezierPath* path) {
  addBox(path, NSMakeRect(1.5, 2.5, 13, 4.6), 2.3);
  addBox(path, NSMakeRect(1.5, 9.1, 13, 4.6), 2.3);
  addDot(path, 12.1, 4.8);
  addDot(path, 3.9, 11.4);
}

void addKeyboard(NSBezierPath* path) {
  addBox(path, NSMakeRect(1, 3.5, 14, 9), 1.8);
  for (const CGFloat x : {4.0, 6.7, 9.4, 12.1}) addDot(path, x, 6.4);
  for (const CGFloat x : {4.0, 12.1}) addDot(path, x, 9.7);
  addLine(path, {{6.2, 9.7}, {9.8, 9.7}});
}

void addArea(NSBezierPath* path) {
  addBox(path, NSMakeRect(1, 2.5, 14, 11), 1.8);
  addBox(path, NSMakeRect(5.5, 5.5, 6.5, 5), 0.8);
}

void addStatistics(NSBezierPath* path) {
  addLine(path, {{1.5, 14}, {14.5, 14}});
  addBox(path, NSMakeRect(2.5, 8.5, 2.6, 3.6), 0.6);
  addBox(path, NSMakeRect(6.7, 2.5, 2.6, 9.6), 0.6);
  addBox(path, NSMakeRect(10.9, 5.7, 2.6, 6.4), 0.6);
}

struct SymbolDrawing {
  FormSymbol symbol;
  void (*add)(NSBezierPath*);
};

constexpr std::array<SymbolDrawing, 6> drawings{{
    {FormSymbol::trash, addTrash},
    {FormSymbol::spacing, addSpacing},
    {FormSymbol::behavior, addBehavior},
    {FormSymbol::keyboard, addKeyboard},
    {FormSymbol::area, addArea},
    {FormSymbol::statistics, addStatistics},
}};

constexpr CGFloat board = 16;

/// From the board to the area.
NSAffineTransform* placement(NSRect area, BOOL flipped) {
  NSAffineTransform* const transform = [NSAffineTransform transform];
  [transform translateXBy:area.origin.x yBy:flipped ? area.origin.y : NSMaxY(area)];
  [transform scaleXBy:area.size.width / board yBy:(flipped ? 1 : -1) * area.size.height / board];
  return transform;
}

}  // namespace

void drawSymbol(FormSymbol symbol, NSRect area, NSColor* colour, BOOL flipped) {
  for (const auto& drawing : drawings) {
    if (drawing.symbol != symbol) continue;
    NSBezierPath* const path = [NSBezierPath bezierPath];
    drawing.add(path);
    [path transformUsingAffineTransform:placement(area, flipped)];
    [path setLineWidth:1.25 * area.size.width / board];
    [path setLineCapStyle:NSRoundLineCapStyle];
    [path setLineJoinStyle:NSRoundLineJoinStyle];
    [colour set];
    [path stroke];
  }
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
