#import <AppKit/AppKit.h>

#include "tests/macos/gnustep/KeptWindows.h"
#include "tests/macos/gnustep/StatusBarUser.h"

using tilwin::macos::Held;
using tilwin::macos::keepWindow;
using tilwin::macos::owned;
using tilwin::macos::retained;

namespace {

constexpr CGFloat thickness = 24;
/// There is room for submenus at the right.
constexpr CGFloat fromRight = 700;

NSStatusItem* latest = nil;

}  // namespace

@interface TWStatusItem (Clicks)
- (id)initWithLength:(CGFloat)length;
- (void)openOrCloseMenu;
- (BOOL)isMenuOpen;
@end

/// Both mouse buttons open the menu.
@interface TWStatusBarButton : NSStatusBarButton
@end

@implementation TWStatusBarButton

- (void)mouseDown:(NSEvent*)event {
  (void)event;
  [static_cast<NSStatusItem*>([self target]) openOrCloseMenu];
}
- (void)rightMouseDown:(NSEvent*)event {
  [self mouseDown:event];
}

@end

@implementation TWStatusItem

- (id)initWithLength:(CGFloat)length {
  self = [super init];
  const CGFloat width = length < 0 ? thickness : length;
  const NSRect screen = [[NSScreen mainScreen] frame];
  const NSPoint origin = NSMakePoint(NSMaxX(screen) - fromRight, NSMaxY(screen) - thickness);
  panel_ = owned([[NSPanel alloc] initWithContentRect:NSMakeRect(origin.x, origin.y, width, thickness)
                                            styleMask:NSBorderlessWindowMask
                                              backing:NSBackingStoreBuffered
                                                defer:NO]);
  [panel_.get() setReleasedWhenClosed:NO];
  [panel_.get() setHidesOnDeactivate:NO];
  [panel_.get() setLevel:NSStatusWindowLevel];
  button_ = Held<NSStatusBarButton*>::owned(
      [[TWStatusBarButton alloc] initWithFrame:NSMakeRect(0, 0, width, thickness)]);
  [button_.get() setBordered:NO];
  [button_.get() setTitle:@""];
  [button_.get() setImagePosition:NSImageOnly];
  [button_.get() setTarget:self];
  [[panel_.get() contentView] addSubview:button_.get()];
  [self setVisible:YES];
  latest = self;
  return self;
}
- (void)dealloc {
  [[NSStatusBar systemStatusBar] removeStatusItem:self];
  keepWindow(panel_.get());
  [NSObject cancelPreviousPerformRequestsWithTarget:self];
  [super dealloc];
}

- (NSStatusBarButton*)button {
  return button_.get();
}
- (BOOL)isVisible {
  return isVisible_;
}
- (void)setVisible:(BOOL)visible {
  isVisible_ = visible;
  [NSObject cancelPreviousPerformRequestsWithTarget:self];
  [self performSelector:@selector(showOrHide) withObject:nil afterDelay:0];
}
/// Once all is set, as a window that is shown, hidden and shown at once may stay hidden.
- (void)showOrHide {
  if (isVisible_) {
    [panel_.get() orderFrontRegardless];
  } else {
    [panel_.get() orderOut:nil];
  }
}
- (NSMenu*)menu {
  return menu_.get();
}
- (void)setMenu:(NSMenu*)menu {
  if ([self isMenuOpen]) [self openOrCloseMenu];
  if (wasOpened_) keepWindow([[menu_.get() menuRepresentation] window]);
  wasOpened_ = NO;
  menu_ = retained(menu);
}
- (NSWindow*)window {
  return panel_.get();
}
- (BOOL)isMenuOpen {
  return [[[menu_.get() menuRepresentation] window] isVisible];
}

- (void)openOrCloseMenu {
  if ([self isMenuOpen]) {
    [menu_.get() closeTransient];
    return [self lookAtMenu:openMenu_.get()];
  }
  [self lookAtMenu:openMenu_.get()];
  [menu_.get() update];
  [[menu_.get() delegate] menuWillOpen:menu_.get()];
  [menu_.get() sizeToFit];
  [menu_.get() displayTransient];
  wasOpened_ = YES;
  const NSRect icon = [panel_.get() frame];
  [[[menu_.get() menuRepresentation] window] setFrameTopLeftPoint:NSMakePoint(NSMinX(icon), NSMinY(icon))];
  [self watchMenu];
}

- (void)chooseItemAtIndex:(NSInteger)index ofMenu:(NSMenu*)menu {
  if (![self isMenuOpen] || ![[menu itemAtIndex:index] isEnabled]) return;
  const auto item = retained(static_cast<NSMenuItem*>([menu itemAtIndex:index]));
  [self openOrCloseMenu];
  [NSApp sendAction:[item.get() action] to:[item.get() target] from:item.get()];
}

/// GNUstep does not say when a menu has closed.
- (void)watchMenu {
  openMenu_ = retained([NSTimer timerWithTimeInterval:0.005
                                               target:self
                                             selector:@selector(lookAtMenu:)
                                             userInfo:nil
                                              repeats:YES]);
  for (NSString* mode in @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ]) {
    [[NSRunLoop mainRunLoop] addTimer:openMenu_.get() forMode:mode];
  }
}

- (void)lookAtMenu:(NSTimer*)timer {
  if (![timer isValid] || [self isMenuOpen]) return;
  [timer invalidate];
  [[menu_.get() delegate] menuDidClose:menu_.get()];
}

@end

@implementation TWStatusBar

+ (void)load {
  [[NSNotificationCenter defaultCenter] addObserver:self
                                           selector:@selector(chooseLook:)
                                               name:NSApplicationWillFinishLaunchingNotification
                                             object:nil];
}

/// GNUstep's menus have a title unless they are to look like a Macintosh's. It must know before the first.
+ (void)chooseLook:(NSNotification*)notification {
  (void)notification;
  NSUserDefaults* const defaults = [NSUserDefaults standardUserDefaults];
  [defaults registerDefaults:@{@"NSMenuInterfaceStyle" : @"NSMacintoshInterfaceStyle"}];
  [[NSNotificationCenter defaultCenter] postNotificationName:NSUserDefaultsDidChangeNotification
                                                      object:defaults];
}

+ (TWStatusBar*)systemStatusBar {
  static TWStatusBar* const bar = [[TWStatusBar alloc] init];
  return bar;
}
- (CGFloat)thickness {
  return thickness;
}
- (NSStatusItem*)statusItemWithLength:(CGFloat)length {
  return [[[NSStatusItem alloc] initWithLength:length] autorelease];
}
- (void)removeStatusItem:(NSStatusItem*)item {
  [item setVisible:NO];
  if (latest == item) latest = nil;
}
- (NSStatusItem*)latestItem {
  return latest;
}

@end
