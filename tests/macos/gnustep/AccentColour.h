#pragma once

#include "tests/macos/Introduced.h"

/// AppKit, macOS 10.14. GNUstep's colours have no accent; this one is blue, as the system's is at first.
@interface NSColor (Accent)
+ (NSColor*)controlAccentColor INTRODUCED(10.14);
@end
