#pragma once

#include "platform/macos/support/Held.h"
#include "tests/macos/Introduced.h"

/// AppKit's status bar. GNUstep's gives no items. This one shows each in a small window at the top of the
/// screen. Its menu is GNUstep's, but opens without a loop of its own: it is there when the click has been
/// handled.

/// NSStatusItem, macOS 10.0.
INTRODUCED(10.0)
@interface TWStatusItem : NSObject {
  tilwin::macos::Held<NSPanel*> panel_;
  tilwin::macos::Held<NSStatusBarButton*> button_;
  tilwin::macos::Held<NSMenu*> menu_;
  tilwin::macos::Held<NSTimer*> openMenu_;
  BOOL isVisible_;
  BOOL wasOpened_;
}
- (NSStatusBarButton*)button INTRODUCED(10.10);
- (BOOL)isVisible INTRODUCED(10.12);
- (void)setVisible:(BOOL)visible INTRODUCED(10.12);
- (NSMenu*)menu INTRODUCED(10.0);
- (void)setMenu:(NSMenu*)menu INTRODUCED(10.0);
@end

/// NSStatusBar, macOS 10.0.
INTRODUCED(10.0)
@interface TWStatusBar : NSObject
+ (TWStatusBar*)systemStatusBar INTRODUCED(10.0);
- (CGFloat)thickness INTRODUCED(10.0);
/// Autoreleased and visible. The bar does not own it.
- (TWStatusItem*)statusItemWithLength:(CGFloat)length INTRODUCED(10.0);
- (void)removeStatusItem:(TWStatusItem*)item INTRODUCED(10.0);
@end

#define NSStatusBar TWStatusBar
#define NSStatusItem TWStatusItem
