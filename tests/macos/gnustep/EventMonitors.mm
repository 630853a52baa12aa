#import <AppKit/AppKit.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "core/support/Fatal.h"
#include "platform/macos/support/Held.h"
#include "tests/macos/gnustep/EventsElsewhere.h"

using LocalHandler = NSEvent* (^)(NSEvent*);
using GlobalHandler = void (^)(NSEvent*);

@interface TWEventMonitor : NSObject {
@public
  NSEventMask mask;
  tilwin::macos::Held<LocalHandler> local;
  tilwin::macos::Held<GlobalHandler> global;
}
@end

@implementation TWEventMonitor
@end

namespace tilwin::macos {
namespace {

using Monitors = std::vector<Held<TWEventMonitor*>>;

Monitors& monitors() {
  static Monitors all;
  return all;
}

bool isThere(const Held<TWEventMonitor*>& monitor) {
  return std::ranges::find(monitors(), monitor.get(), &Held<TWEventMonitor*>::get) != monitors().end();
}

/// Those of this type of event, in a list of its own, as their handlers may add and remove monitors.
Monitors seeing(NSEvent* event) {
  Monitors found;
  const NSEventMask type = NSEventMask{1} << [event type];
  std::ranges::copy_if(monitors(), std::back_inserter(found),
                       [&](const auto& monitor) { return (monitor.get()->mask & type) != 0; });
  return found;
}

id added(const Held<TWEventMonitor*>& monitor) {
  monitors().push_back(monitor);
  return monitor.get();
}

/// The event as the local monitors pass it on; nil if one keeps it.
NSEvent* passedOn(NSEvent* event) {
  for (const auto& monitor : seeing(event)) {
    if (event == nil || !monitor.get()->local || !isThere(monitor)) continue;
    event = monitor.get()->local.get()(event);
  }
  return event;
}

}  // namespace

void deliverElsewhere(NSEvent* event) {
  for (const auto& monitor : seeing(event)) {
    if (monitor.get()->global && isThere(monitor)) monitor.get()->global.get()(event);
  }
}

std::size_t eventMonitors() { return monitors().size(); }

}  // namespace tilwin::macos

@implementation NSEvent (Monitors)

+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(LocalHandler)handler {
  auto monitor = tilwin::macos::owned([[TWEventMonitor alloc] init]);
  monitor.get()->mask = mask;
  monitor.get()->local = tilwin::macos::owned<LocalHandler>([handler copy]);
  return tilwin::macos::added(monitor);
}

+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(GlobalHandler)handler {
  auto monitor = tilwin::macos::owned([[TWEventMonitor alloc] init]);
  monitor.get()->mask = mask;
  monitor.get()->global = tilwin::macos::owned<GlobalHandler>([handler copy]);
  return tilwin::macos::added(monitor);
}

+ (void)removeMonitor:(id)monitor {
  const auto held = tilwin::macos::retained(monitor);
  const auto removed =
      std::erase_if(tilwin::macos::monitors(), [&](const auto& other) { return other.get() == held.get(); });
  if (removed == 0) tilwin::fatal("What is removed is no event monitor, or no longer one.");
}

@end

/// Puts the local monitors before the events that the application hands to its windows.
@interface TWMonitoredApplication : NSApplication
@end

namespace {

using SendEvent = void (*)(id, SEL, NSEvent*);
SendEvent handToWindow = nullptr;

}  // namespace

@implementation TWMonitoredApplication

+ (void)load {
  auto* const original = class_getInstanceMethod([NSApplication class], @selector(sendEvent:));
  auto* const monitored = class_getInstanceMethod(self, @selector(sendEvent:));
  handToWindow =
      reinterpret_cast<SendEvent>(method_setImplementation(original, method_getImplementation(monitored)));
}

- (void)sendEvent:(NSEvent*)event {
  const auto kept = tilwin::macos::retained(tilwin::macos::passedOn(event));
  if (kept) handToWindow(self, _cmd, kept.get());
}

@end
