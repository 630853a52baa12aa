#pragma once

/// AppKit, macOS 10.7. GNUstep draws its controls up to the edges of their frames.
@interface NSView (AlignmentRectangles)
- (NSRect)alignmentRectForFrame:(NSRect)frame __attribute__((availability(macos, introduced = 10.7)));
- (NSRect)frameForAlignmentRect:(NSRect)alignmentRect __attribute__((availability(macos, introduced = 10.7)));
@end
