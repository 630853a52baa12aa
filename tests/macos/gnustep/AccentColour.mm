#import <AppKit/AppKit.h>

@implementation NSColor (Accent)

+ (NSColor*)controlAccentColor {
  return [NSColor colorWithCalibratedRed:0 green:0.478 blue:1 alpha:1];
}

@end
