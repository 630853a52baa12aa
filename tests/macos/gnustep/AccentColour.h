#pragma once

/// AppKit, macOS 10.14. GNUstep's colours have no accent; this one is blue, as the system's is at first.
@interface NSColor (Accent)
+ (NSColor*)controlAccentColor;
@end
