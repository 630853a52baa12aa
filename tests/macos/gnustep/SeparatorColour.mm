#import <AppKit/AppKit.h>

@implementation NSColor (Separator)

+ (NSColor*)separatorColor {
  return [NSColor colorWithCalibratedWhite:0 alpha:0.12];
}

@end
