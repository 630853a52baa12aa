#import <AppKit/AppKit.h>

#include "platform/macos/support/Held.h"
#include "tests/macos/gnustep/Attached.h"

using tilwin::macos::Held;

namespace {

tilwin::macos::Attached<tilwin::macos::Held<NSString*>> labels("NSView");

}  // namespace

@implementation NSView (AccessibilityLabel)

- (NSString*)accessibilityLabel {
  return labels.of(self).get();
}

- (void)setAccessibilityLabel:(NSString*)label {
  labels.set(self, Held<NSString*>::owned([label copy]));
}

@end
