#import <AppKit/AppKit.h>

#include "platform/macos/support/Held.h"
#include "tests/macos/gnustep/Attached.h"

using DrawingHandler = BOOL (^)(NSRect area);

namespace {

tilwin::macos::Attached<bool> templates("NSImage");

}  // namespace

/// Draws by calling a block.
@interface TWDrawnImageRep : NSImageRep {
@public
  DrawingHandler handler;
  BOOL isFlipped;
}
@end

@implementation TWDrawnImageRep

/// A copy has the bytes of its original, so it needs its own reference.
- (id)copyWithZone:(NSZone*)zone {
  TWDrawnImageRep* const copy = [super copyWithZone:zone];
  copy->handler = [handler copy];
  return copy;
}

- (void)dealloc {
  [handler release];
  [super dealloc];
}

- (BOOL)draw {
  const NSSize size = [self size];
  [NSGraphicsContext saveGraphicsState];
  if (isFlipped) {
    NSAffineTransform* const turned = [NSAffineTransform transform];
    [turned translateXBy:0 yBy:size.height];
    [turned scaleXBy:1 yBy:-1];
    [turned concat];
  }
  const BOOL drawn = handler(NSMakeRect(0, 0, size.width, size.height));
  [NSGraphicsContext restoreGraphicsState];
  return drawn;
}

@end

@implementation NSImage (DrawnImage)

+ (NSImage*)imageWithSize:(NSSize)size flipped:(BOOL)flipped drawingHandler:(DrawingHandler)handler {
  const auto image = tilwin::macos::owned([[NSImage alloc] initWithSize:size]);
  const auto drawing = tilwin::macos::owned([[TWDrawnImageRep alloc] init]);
  drawing.get()->handler = [handler copy];
  drawing.get()->isFlipped = flipped;
  [drawing.get() setSize:size];
  [drawing.get() setAlpha:YES];
  [image.get() addRepresentation:drawing.get()];
  [image.get() setCacheMode:NSImageCacheNever];
  return [[image.get() retain] autorelease];
}

- (BOOL)isTemplate {
  return templates.of(self);
}

- (void)setTemplate:(BOOL)isTemplate {
  templates.set(self, isTemplate != NO);
}

@end
