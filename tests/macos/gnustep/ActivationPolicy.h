#pragma once

#include "tests/macos/Introduced.h"

/// AppKit, macOS 10.6. GNUstep's applications have no such choice; this one is remembered.
@interface NSApplication (ActivationPolicy)
- (NSApplicationActivationPolicy)activationPolicy INTRODUCED(10.6);
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy INTRODUCED(10.6);
@end
