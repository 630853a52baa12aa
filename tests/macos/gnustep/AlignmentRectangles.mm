#import <AppKit/AppKit.h>

@implementation NSView (AlignmentRectangles)

- (NSRect)alignmentRectForFrame:(NSRect)frame {
  return frame;
}

- (NSRect)frameForAlignmentRect:(NSRect)alignmentRect {
  return alignmentRect;
}

@end
