#pragma once

/// AppKit, macOS 10.14. GNUstep has no colour for the lines between rows.
@interface NSColor (Separator)
+ (NSColor*)separatorColor __attribute__((availability(macos, introduced = 10.14)));
@end
