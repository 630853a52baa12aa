#pragma once

/// AppKit, macOS 10.10, from the NSAccessibility protocol. GNUstep's views have no name for assistive
/// technology.
@interface NSView (AccessibilityLabel)
- (NSString*)accessibilityLabel __attribute__((availability(macos, introduced = 10.10)));
- (void)setAccessibilityLabel:(NSString*)label __attribute__((availability(macos, introduced = 10.10)));
@end
