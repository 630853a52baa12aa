#pragma once

#include "tests/macos/Introduced.h"

/// What GNUstep's images lack.
@interface NSImage (DrawnImage)
/// AppKit, macOS 10.8. Autoreleased; the image keeps a copy of the block and calls it each time it is drawn.
+ (NSImage*)imageWithSize:(NSSize)size
                  flipped:(BOOL)flipped
           drawingHandler:(BOOL (^)(NSRect area))handler INTRODUCED(10.8);
/// AppKit, macOS 10.5.
- (BOOL)isTemplate INTRODUCED(10.5);
- (void)setTemplate:(BOOL)isTemplate INTRODUCED(10.5);
@end
