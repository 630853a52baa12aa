#pragma once

#include "tests/macos/Introduced.h"

/// AppKit, macOS 10.7. GNUstep draws its controls up to the edges of their frames.
@interface NSView (AlignmentRectangles)
- (NSRect)alignmentRectForFrame:(NSRect)frame INTRODUCED(10.7);
- (NSRect)frameForAlignmentRect:(NSRect)alignmentRect INTRODUCED(10.7);
@end
