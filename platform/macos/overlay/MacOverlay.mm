#include "platform/macos/overlay/MacOverlay.h"

#include "platform/macos/displays/MacScreens.h"
#include "platform/ports/ScreenSpace.h"

namespace {

using tilwin::OverlayStyle;

NSBezierPath* roundedRect(NSRect rect, CGFloat radius) {
  return [NSBezierPath bezierPathWithRoundedRect:rect xRadius:radius yRadius:radius];
}

}  // namespace

@implementation TWOverlayView

- (void)drawRect:(NSRect)dirtyRect {
  (void)dirtyRect;
  NSColor* const accent = [NSColor controlAccentColor];
  [[accent colorWithAlphaComponent:OverlayStyle::fillOpacity] set];
  [roundedRect([self bounds], OverlayStyle::cornerRadius) fill];
  // A line lies on both sides of its path.
  constexpr CGFloat half = OverlayStyle::borderWidth / 2;
  NSBezierPath* const border =
      roundedRect(NSInsetRect([self bounds], half, half), OverlayStyle::cornerRadius - half);
  [border setLineWidth:OverlayStyle::borderWidth];
  [[accent colorWithAlphaComponent:OverlayStyle::borderOpacity] set];
  [border stroke];
}

@end

namespace tilwin::macos {
namespace {

/// NSFloatingWindowLevel: above the windows of all programs, below menus and the dock. As a number, because
/// other implementations of AppKit count levels differently.
constexpr NSInteger floatingLevel = 3;

using Behavior = NSWindowCollectionBehavior;
constexpr Behavior everywhereAndUnlisted = Behavior{NSWindowCollectionBehaviorCanJoinAllSpaces} |
                                           Behavior{NSWindowCollectionBehaviorTransient} |
                                           Behavior{NSWindowCollectionBehaviorIgnoresCycle};

NSRect nsRect(const ScreenRect& rect) { return NSMakeRect(rect.x, rect.y, rect.width, rect.height); }

Held<NSWindow*> makeWindow() {
  auto made = owned([[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 1, 1)
                                                styleMask:NSWindowStyleMaskBorderless
                                                  backing:NSBackingStoreBuffered
                                                    defer:NO]);
  NSWindow* const window = made.get();
  [window setReleasedWhenClosed:NO];
  [window setOpaque:NO];
  [window setBackgroundColor:[NSColor clearColor]];
  [window setHasShadow:NO];
  [window setIgnoresMouseEvents:YES];
  [window setLevel:floatingLevel];
  [window setCollectionBehavior:everywhereAndUnlisted];
  const auto view = owned([[TWOverlayView alloc] initWithFrame:NSMakeRect(0, 0, 1, 1)]);
  [view.get() setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
  [window setContentView:view.get()];
  return made;
}

}  // namespace

MacOverlay::~MacOverlay() { [window_.get() close]; }

void MacOverlay::showAt(const Rect& frame) {
  if (!window_) window_ = makeWindow();
  // The accent colour may have changed since the last time.
  [[window_.get() contentView] setNeedsDisplay:YES];
  [window_.get() setFrame:nsRect(toScreen(frame, firstScreenHeight())) display:YES animate:NO];
  [window_.get() orderFrontRegardless];
}

void MacOverlay::hide() { [window_.get() orderOut:nil]; }

}  // namespace tilwin::macos
