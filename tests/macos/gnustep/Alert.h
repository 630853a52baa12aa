#pragma once

#include "platform/macos/support/Held.h"
#include "tests/macos/Introduced.h"

/// AppKit's NSAlert, macOS 10.3. GNUstep's shows no accessory view and has no `layout`. This one lays out
/// what an alert has, gives its buttons AppKit's keys, and runs.
INTRODUCED(10.3)
@interface TWAlert : NSObject {
  tilwin::macos::Held<NSString*> messageText_;
  tilwin::macos::Held<NSString*> informativeText_;
  tilwin::macos::Held<NSMutableArray*> buttons_;
  tilwin::macos::Held<NSView*> accessoryView_;
  tilwin::macos::Held<NSPanel*> panel_;
}
- (NSString*)messageText INTRODUCED(10.3);
- (void)setMessageText:(NSString*)text INTRODUCED(10.3);
- (NSString*)informativeText INTRODUCED(10.3);
- (void)setInformativeText:(NSString*)text INTRODUCED(10.3);
/// The first is the default button, at the right.
- (NSButton*)addButtonWithTitle:(NSString*)title INTRODUCED(10.3);
- (NSArray*)buttons INTRODUCED(10.3);
- (NSView*)accessoryView INTRODUCED(10.5);
- (void)setAccessoryView:(NSView*)view INTRODUCED(10.5);
/// Otherwise done when it runs.
- (void)layout INTRODUCED(10.5);
- (id)window INTRODUCED(10.3);
- (NSInteger)runModal INTRODUCED(10.3);
@end

#define NSAlert TWAlert
