#include "platform/macos/settings/FormWindow.h"

#include "platform/macos/settings/Measured.h"
#include "platform/macos/support/Keys.h"

using tilwin::macos::typedCharacter;

namespace {

constexpr NSSize initialSize{880, 640};
constexpr NSSize smallestSize{720, 480};

/// Those of the modifiers that make a command of a key.
NSEventModifierFlags commandKeysOf(NSEvent* event) {
  return [event modifierFlags] &
         (NSEventModifierFlagCommand | NSEventModifierFlagControl | NSEventModifierFlagOption);
}

bool isFind(NSEvent* event) {
  return typedCharacter(event) == u'f' && commandKeysOf(event) == NSEventModifierFlagCommand &&
         ([event modifierFlags] & NSEventModifierFlagShift) == 0;
}

/// The view that has the focus, or that is edited.
NSView* focusedView(NSResponder* responder) {
  if (![responder isKindOfClass:[NSView class]]) return nil;
  auto* const view = static_cast<NSView*>(responder);
  if (![view isKindOfClass:[NSText class]]) return view;
  const id edited = [static_cast<NSText*>(view) delegate];
  return [edited isKindOfClass:[NSView class]] ? static_cast<NSView*>(edited) : view;
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

/// The focus is shown in the key window only.
- (void)redrawFocus {
  tilwin::macos::redraw(focusedView([self firstResponder]));
}

- (void)windowDidBecomeKey:(NSNotification*)notification {
  (void)notification;
  [self redrawFocus];
}

- (void)windowDidResignKey:(NSNotification*)notification {
  (void)notification;
  [self redrawFocus];
  if (const auto losing = onLosingKeys) losing();
}

- (void)cancelOperation:(id)sender {
  [self performClose:sender];
}

- (void)keyDown:(NSEvent*)event {
  const unichar character = commandKeysOf(event) == 0 ? typedCharacter(event) : u'\0';
  if (character == tilwin::macos::escapeCharacter) {
    if (![event isARepeat]) [self performClose:self];
    return;
  }
  if (character == u'/' && ([event isARepeat] || (onSearching && onSearching()))) return;
  [super keyDown:event];
}

- (BOOL)performKeyEquivalent:(NSEvent*)event {
  if (isFind(event) && onSearching && onSearching()) return YES;
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
