#pragma once

#include "platform/macos/support/Held.h"

/// AppKit's NSAlert, macOS 10.3. GNUstep's shows no accessory view and has no `layout`. This one lays out
/// what an alert has, gives its buttons AppKit's keys, and runs.
@interface TWAlert : NSObject {
  tilwin::macos::Held<NSString*> messageText_;
  tilwin::macos::Held<NSString*> informativeText_;
  tilwin::macos::Held<NSMutableArray*> buttons_;
  tilwin::macos::Held<NSView*> accessoryView_;
  tilwin::macos::Held<NSPanel*> panel_;
}
- (NSString*)messageText;
- (void)setMessageText:(NSString*)text;
- (NSString*)informativeText;
- (void)setInformativeText:(NSString*)text;
/// The first is the default button, at the right.
- (NSButton*)addButtonWithTitle:(NSString*)title;
- (NSArray*)buttons;
- (NSView*)accessoryView __attribute__((availability(macos, introduced = 10.5)));
- (void)setAccessoryView:(NSView*)view __attribute__((availability(macos, introduced = 10.5)));
/// Otherwise done when it runs.
- (void)layout __attribute__((availability(macos, introduced = 10.5)));
- (id)window;
- (NSInteger)runModal;
@end

#define NSAlert TWAlert
