#pragma once

#include "tests/macos/Introduced.h"

/// AppKit, macOS 10.10, from the NSAccessibility protocol. GNUstep's views have no name for assistive
/// technology.
@interface NSView (AccessibilityLabel)
- (NSString*)accessibilityLabel INTRODUCED(10.10);
- (void)setAccessibilityLabel:(NSString*)label INTRODUCED(10.10);
@end
