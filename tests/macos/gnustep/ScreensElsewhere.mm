// GNUstep's screens are those that the X server had at the start, and no panel takes room of them.

#include "tests/macos/gnustep/ScreensElsewhere.h"

#include <optional>

using tilwin::macos::ScreenElsewhere;

@interface TWScreenElsewhere : NSScreen {
@public
  ScreenElsewhere screen;
}
@end

namespace {

using Screens = NSArray* (*)(id, SEL);
Screens screensOfServer = nullptr;
std::optional<tilwin::macos::Held<NSArray*>> connected;

NSRect nsRect(const tilwin::ScreenRect& rect) { return NSMakeRect(rect.x, rect.y, rect.width, rect.height); }

void post() {
  [[NSNotificationCenter defaultCenter]
      postNotificationName:NSApplicationDidChangeScreenParametersNotification
                    object:NSApp];
}

}  // namespace

@implementation TWScreenElsewhere

- (NSRect)frame {
  return nsRect(screen.frame);
}
- (NSRect)visibleFrame {
  return nsRect(screen.visibleFrame);
}
- (NSDictionary*)deviceDescription {
  return screen.description.get();
}

@end

@interface TWScreens : NSScreen
@end

@implementation TWScreens

+ (void)load {
  const tilwin::macos::AutoreleasePool pool;
  Method original = class_getClassMethod([NSScreen class], @selector(screens));
  Method replacement = class_getClassMethod(self, @selector(screens));
  screensOfServer =
      reinterpret_cast<Screens>(method_setImplementation(original, method_getImplementation(replacement)));
}

+ (NSArray*)screens {
  return connected ? connected->get() : screensOfServer(self, _cmd);
}

@end

namespace tilwin::macos {

void connectScreens(std::vector<ScreenElsewhere> screens) {
  NSMutableArray* const made = [NSMutableArray array];
  for (auto& each : screens) {
    const auto screen = owned([TWScreenElsewhere alloc]);
    screen.get()->screen = std::move(each);
    [made addObject:screen.get()];
  }
  connected = retained<NSArray*>(made);
  post();
}

void disconnectScreens() {
  connected.reset();
  post();
}

}  // namespace tilwin::macos
