#import <AppKit/AppKit.h>

namespace {

NSColor* ink(CGFloat alpha) { return [NSColor colorWithCalibratedWhite:0 alpha:alpha]; }

NSColor* paper(CGFloat white) { return [NSColor colorWithCalibratedWhite:white alpha:1]; }

}  // namespace

#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSColor (SystemColours)

+ (NSColor*)separatorColor {
  return ink(0.12);
}

+ (NSColor*)labelColor {
  return ink(0.85);
}

+ (NSColor*)secondaryLabelColor {
  return ink(0.55);
}

+ (NSColor*)tertiaryLabelColor {
  return ink(0.26);
}

+ (NSColor*)controlBackgroundColor {
  return paper(1);
}

+ (NSColor*)windowBackgroundColor {
  return paper(0.93);
}

+ (NSColor*)keyboardFocusIndicatorColor {
  return [NSColor colorWithCalibratedRed:0 green:0.4 blue:0.96 alpha:0.5];
}

+ (NSColor*)systemRedColor {
  return [NSColor colorWithCalibratedRed:1 green:0.23 blue:0.19 alpha:1];
}

@end

#pragma clang diagnostic pop
