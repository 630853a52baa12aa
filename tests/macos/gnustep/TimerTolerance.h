#pragma once

/// Foundation, macOS 10.9. GNUstep's timers have none.
@interface NSTimer (Tolerance)
@property NSTimeInterval tolerance;
@end
