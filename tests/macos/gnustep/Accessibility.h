#pragma once

#include "tests/macos/Introduced.h"

/// AppKit, macOS 10.10, from the NSAccessibility protocol. GNUstep's views tell assistive technology nothing;
/// these remember what they are given.
@interface NSView (Accessibility)
- (BOOL)isAccessibilityElement INTRODUCED(10.10);
- (void)setAccessibilityElement:(BOOL)isElement INTRODUCED(10.10);
- (NSString*)accessibilityRole INTRODUCED(10.10);
- (void)setAccessibilityRole:(NSString*)role INTRODUCED(10.10);
- (id)accessibilityValue INTRODUCED(10.10);
- (void)setAccessibilityValue:(id)value INTRODUCED(10.10);
- (NSString*)accessibilityValueDescription INTRODUCED(10.10);
- (void)setAccessibilityValueDescription:(NSString*)value INTRODUCED(10.10);
- (NSString*)accessibilityHelp INTRODUCED(10.10);
- (void)setAccessibilityHelp:(NSString*)help INTRODUCED(10.10);
@end

/// AppKit, macOS 10.2. GNUstep's tells nobody; this counts for tests (AccessibilityPosts.h).
// NOLINTNEXTLINE(readability-redundant-declaration): adds the version to GNUstep's declaration.
extern "C" void NSAccessibilityPostNotification(id element, NSString* notification) INTRODUCED(10.2);
