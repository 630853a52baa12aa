#import <AppKit/AppKit.h>

#include "tests/macos/gnustep/Attached.h"

namespace {

tilwin::macos::Attached<NSTimeInterval> tolerances("NSTimer");

}  // namespace

@implementation NSTimer (Tolerance)

- (NSTimeInterval)tolerance {
  return tolerances.of(self);
}

- (void)setTolerance:(NSTimeInterval)seconds {
  tolerances.set(self, seconds);
}

@end
