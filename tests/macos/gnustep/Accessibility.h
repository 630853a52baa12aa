#pragma once

/// AppKit, macOS 10.10, from the NSAccessibility protocol. GNUstep's views tell assistive technology nothing;
/// these remember what they are given.
@interface NSView (Accessibility)
- (BOOL)isAccessibilityElement __attribute__((availability(macos, introduced = 10.10)));
- (void)setAccessibilityElement:(BOOL)isElement __attribute__((availability(macos, introduced = 10.10)));
- (NSString*)accessibilityRole __attribute__((availability(macos, introduced = 10.10)));
- (void)setAccessibilityRole:(NSString*)role __attribute__((availability(macos, introduced = 10.10)));
- (id)accessibilityValue __attribute__((availability(macos, introduced = 10.10)));
- (void)setAccessibilityValue:(id)value __attribute__((availability(macos, introduced = 10.10)));
- (NSString*)accessibilityValueDescription __attribute__((availability(macos, introduced = 10.10)));
- (void)setAccessibilityValueDescription:(NSString*)value
    __attribute__((availability(macos, introduced = 10.10)));
- (NSString*)accessibilityHelp __attribute__((availability(macos, introduced = 10.10)));
- (void)setAccessibilityHelp:(NSString*)help __attribute__((availability(macos, introduced = 10.10)));
@end

/// AppKit, macOS 10.2. GNUstep's tells nobody; this counts for tests (AccessibilityPosts.h).
extern "C" void NSAccessibilityPostNotification(id element, NSString* notification)
    __attribute__((availability(macos, introduced = 10.2)));
