#pragma once

#include "tests/macos/Introduced.h"

/// AppKit, macOS 10.6. GNUstep has no event monitors. As there, a local one sees the events that
/// `-[NSApplication sendEvent:]` hands on, before their window does, and may pass on another event or none.
@interface NSEvent (Monitors)
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                   handler:(NSEvent* (^)(NSEvent* event))handler INTRODUCED(10.6);
/// Events of other programs reach it by `deliverElsewhere` of EventsElsewhere.h.
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask
                                    handler:(void (^)(NSEvent* event))handler INTRODUCED(10.6);
/// AppKit keeps a monitor until then. Anything else, such as a monitor that has been removed already, ends
/// the program: AppKit would release it once too often.
+ (void)removeMonitor:(id)monitor INTRODUCED(10.6);
@end
