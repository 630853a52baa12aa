#pragma once

#include "platform/macos/support/Held.h"

/// AppKit's status bar. GNUstep's gives no items. This one shows each in a small window at the top of the
/// screen. Its menu is GNUstep's, but opens without a loop of its own: it is there when the click has been
/// handled.

/// NSStatusItem, macOS 10.0.
@interface TWStatusItem : NSObject {
  tilwin::macos::Held<NSPanel*> panel_;
  tilwin::macos::Held<NSStatusBarButton*> button_;
  tilwin::macos::Held<NSMenu*> menu_;
  tilwin::macos::Held<NSTimer*> openMenu_;
  BOOL isVisible_;
  BOOL wasOpened_;
}
- (NSStatusBarButton*)button __attribute__((availability(macos, introduced = 10.10)));
- (BOOL)isVisible __attribute__((availability(macos, introduced = 10.12)));
- (void)setVisible:(BOOL)visible __attribute__((availability(macos, introduced = 10.12)));
- (NSMenu*)menu;
- (void)setMenu:(NSMenu*)menu;
@end

/// NSStatusBar, macOS 10.0.
@interface TWStatusBar : NSObject
+ (TWStatusBar*)systemStatusBar;
- (CGFloat)thickness;
/// Autoreleased and visible. The bar does not own it.
- (TWStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(TWStatusItem*)item;
@end

#define NSStatusBar TWStatusBar
#define NSStatusItem TWStatusItem
