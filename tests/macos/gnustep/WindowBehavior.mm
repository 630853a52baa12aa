// GNUstep's windows forget their collection behaviour.

#import <AppKit/AppKit.h>

#include "platform/macos/support/Held.h"
#include "tests/macos/gnustep/Attached.h"

namespace {

tilwin::macos::Attached<NSWindowCollectionBehavior> behaviors("NSWindow");

}  // namespace

@interface TWBehavingWindow : NSWindow
@end

@implementation TWBehavingWindow

+ (void)load {
  const tilwin::macos::AutoreleasePool pool;
  for (SEL each : { @selector(collectionBehavior), @selector(setCollectionBehavior:) }) {
    method_setImplementation(class_getInstanceMethod([NSWindow class], each),
                             class_getMethodImplementation(self, each));
  }
}

- (NSWindowCollectionBehavior)collectionBehavior {
  return behaviors.of(self);
}
- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior {
  behaviors.set(self, behavior);
}

@end
