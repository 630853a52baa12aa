#include "platform/macos/settings/FormWindow.h"

namespace {

constexpr NSSize initialSize{880, 640};
constexpr NSSize smallestSize{720, 480};
constexpr unichar escape = 0x1b;

bool isKey(NSEvent* event, unichar character) {
  NSString* const typed = [event charactersIgnoringModifiers];
  return [typed length] == 1 && [typed characterAtIndex:0] == character;
}

bool isWithCommand(NSEvent* event) {
  const NSEventModifierFlags keys = NSEventModifierFlagCommand | NSEventModifierFlagControl |
                                    NSEventModifierFlagOption | NSEventModifierFlagShift;
  return ([event modifierFlags] & keys) == NSEventModifierFlagCommand;
}

/// The view that has the focus, or that is edited.
NSView* focusedView(NSResponder* responder) {
  if (![responder isKindOfClass:[NSView class]]) return nil;
  auto* const view = static_cast<NSView*>(responder);
  return [view isKindOfClass:[NSText class]] ? [view superview] : view;
}

}  // namespace

@implementation TWFormWindow

- (instancetype)initForForm {
  const NSUInteger style = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable |
                           NSWindowStyleMaskMiniaturizable | NSWindowStyleMaskResizable;
  self = [super initWithContentRect:NSMakeRect(0, 0, initialSize.width, initialSize.height)
                          styleMask:style
                            backing:NSBackingStoreBuffered
                              defer:NO];
  if (self == nil) return nil;
  [self setReleasedWhenClosed:NO];
  [self setContentMinSize:smallestSize];
  [self setDelegate:self];
  [self center];
  return self;
}

- (void)fallSilent {
  onClosing = nullptr;
  onLosingKeys = nullptr;
  onSearching = nullptr;
}

- (void)windowWillClose:(NSNotification*)notification {
  (void)notification;
  if (const auto closing = onClosing) closing();
}

- (void)windowDidBecomeKey:(NSNotification*)notification {
  (void)notification;
  [[self contentView] setNeedsDisplay:YES];
}

- (void)windowDidResignKey:(NSNotification*)notification {
  (void)notification;
  [[self contentView] setNeedsDisplay:YES];
  if (const auto losing = onLosingKeys) losing();
}

- (void)cancelOperation:(id)sender {
  [self performClose:sender];
}

- (void)keyDown:(NSEvent*)event {
  if ([event isARepeat]) return;
  if (isKey(event, escape)) return [self performClose:self];
  if (isKey(event, u'/') && onSearching && onSearching()) return;
  [super keyDown:event];
}

- (BOOL)performKeyEquivalent:(NSEvent*)event {
  if (isKey(event, u'f') && isWithCommand(event) && onSearching && onSearching()) return YES;
  return [super performKeyEquivalent:event];
}

- (void)revealFocus {
  NSView* const view = focusedView([self firstResponder]);
  [view scrollRectToVisible:NSInsetRect([view bounds], -8, -8)];
}

- (void)selectKeyViewFollowingView:(NSView*)view {
  [super selectKeyViewFollowingView:view];
  [self revealFocus];
}

- (void)selectKeyViewPrecedingView:(NSView*)view {
  [super selectKeyViewPrecedingView:view];
  [self revealFocus];
}

- (void)selectNextKeyView:(id)sender {
  [super selectNextKeyView:sender];
  [self revealFocus];
}

- (void)selectPreviousKeyView:(id)sender {
  [super selectPreviousKeyView:sender];
  [self revealFocus];
}

@end
