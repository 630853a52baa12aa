#import <AppKit/AppKit.h>

namespace {

NSApplicationActivationPolicy chosen = NSApplicationActivationPolicyRegular;

}  // namespace

@implementation NSApplication (ActivationPolicy)

- (NSApplicationActivationPolicy)activationPolicy {
  return chosen;
}

- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy {
  chosen = policy;
  return YES;
}

@end
