#include "platform/macos/settings/KeyButton.h"

#include <utility>

#include "platform/macos/support/Keys.h"

namespace {

bool isPressing(NSEvent* event) {
  const unichar typed = tilwin::macos::typedCharacter(event);
  return typed == u' ' || typed == NSCarriageReturnCharacter || typed == NSEnterCharacter;
}

}  // namespace

@implementation TWKeyButton

- (BOOL)acceptsFirstResponder {
  return [self isEnabled];
}

- (BOOL)canBecomeKeyView {
  return [self isEnabled] && ![self isHiddenOrHasHiddenAncestor];
}

- (void)keyDown:(NSEvent*)event {
  if (!isPressing(event)) return [super keyDown:event];
  if (![event isARepeat]) [self performClick:self];
}

@end

@implementation TWReportingButton

- (instancetype)initWithReport:(tilwin::macos::Report)report {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  report_ = std::move(report);
  [self setButtonType:NSButtonTypeMomentaryPushIn];
  [self setTarget:self];
  [self setAction:@selector(press:)];
  return self;
}

- (void)press:(id)sender {
  (void)sender;
  report_(tilwin::form::ButtonPressed{id_});
}

- (const std::string&)formId {
  return id_;
}

- (NSView*)keyView {
  return self;
}

- (void)setRemark:(NSString*)remark {
  [self setAccessibilityHelp:remark];
}

@end
