#include "platform/macos/system/MacApplication.h"

#import <AppKit/AppKit.h>

#include <utility>

@interface TWApplicationDelegate : NSObject <NSApplicationDelegate> {
@public
  std::function<void()> launched;
  std::function<void()> reopened;
}
@end

@implementation TWApplicationDelegate

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
  (void)notification;
  [NSApp setActivationPolicy:NSApplicationActivationPolicyAccessory];
  if (launched) launched();
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)application hasVisibleWindows:(BOOL)hasVisibleWindows {
  (void)application;
  (void)hasVisibleWindows;
  if (reopened) reopened();
  return NO;
}

/// (macOS 12.0) Without an answer AppKit logs a warning at each start.
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)application {
  (void)application;
  return YES;
}

@end

namespace tilwin::macos {

MacApplication::MacApplication() : delegate_(owned([[TWApplicationDelegate alloc] init])) {
  [[NSApplication sharedApplication] setDelegate:delegate_.get()];
}

MacApplication::~MacApplication() { [NSApp setDelegate:nil]; }

void MacApplication::onLaunched(std::function<void()> handler) {
  delegate_.get()->launched = std::move(handler);
}

void MacApplication::onReopened(std::function<void()> handler) {
  delegate_.get()->reopened = std::move(handler);
}

}  // namespace tilwin::macos
