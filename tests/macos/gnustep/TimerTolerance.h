#pragma once

#include "tests/macos/Introduced.h"

/// Foundation, macOS 10.9. GNUstep's timers have none.
@interface NSTimer (Tolerance)
@property NSTimeInterval tolerance INTRODUCED(10.9);
@end
