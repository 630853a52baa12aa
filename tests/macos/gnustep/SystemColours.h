#pragma once

#include "tests/macos/Introduced.h"

/// AppKit, macOS 10.14. GNUstep has no colour for the lines between rows. Here the other colours of the
/// system that a form is drawn in are as in macOS too: GNUstep's are opaque black and grey.
@interface NSColor (SystemColours)
+ (NSColor*)separatorColor INTRODUCED(10.14);
@end
