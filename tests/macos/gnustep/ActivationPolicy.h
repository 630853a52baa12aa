#pragma once

/// AppKit, macOS 10.6. GNUstep's applications have no such choice; this one is remembered.
@interface NSApplication (ActivationPolicy)
- (NSApplicationActivationPolicy)activationPolicy;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
@end
