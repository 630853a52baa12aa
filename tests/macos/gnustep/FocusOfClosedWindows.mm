// On macOS a program stays active when one of its windows closes. GNUstep deactivates it when the X server
// says, maybe after the next window has opened, that the closed one has lost the focus.

#import <AppKit/AppKit.h>

#include <GNUstepGUI/GSDisplayServer.h>
#include <X11/Xlib.h>

#include "platform/macos/support/Held.h"

namespace {

using ProcessEvent = void (*)(id, SEL, XEvent*);
using Deactivate = void (*)(id, SEL);

ProcessEvent processAny = nullptr;
Deactivate deactivateNow = nullptr;
/// Whether the event now handled says that a closed window has lost the focus.
bool isOfClosedWindow = false;

bool isOpen(Window window) {
  const tilwin::macos::AutoreleasePool pool;
  for (NSWindow* each in [NSApp windows]) {
    const auto number = static_cast<int>([each windowNumber]);
    if (![each isVisible] || number <= 0) continue;
    if (reinterpret_cast<Window>([GSServerForWindow(each) windowDevice:number]) == window) return true;
  }
  return false;
}

}  // namespace

@interface TWFocusOfClosedWindows : NSObject
@end

@implementation TWFocusOfClosedWindows

+ (void)load {
  [[NSNotificationCenter defaultCenter] addObserver:self
                                           selector:@selector(watch:)
                                               name:NSBundleDidLoadNotification
                                             object:nil];
}

/// Before the server has handled any event, as it looks its method up only once.
+ (void)watch:(NSNotification*)notification {
  (void)notification;
  auto* const server = NSClassFromString(@"XGServer");
  if (server == Nil || processAny != nullptr) return;
  const auto replace = [self](Class of, SEL name) {
    return method_setImplementation(class_getInstanceMethod(of, name),
                                    class_getMethodImplementation(self, name));
  };
  processAny = reinterpret_cast<ProcessEvent>(replace(server, @selector(processEvent:)));
  deactivateNow = reinterpret_cast<Deactivate>(replace([NSApplication class], @selector(deactivate)));
}

- (void)processEvent:(XEvent*)event {
  isOfClosedWindow = event->type == FocusOut && !isOpen(event->xfocus.window);
  processAny(self, _cmd, event);
  isOfClosedWindow = false;
}

- (void)deactivate {
  if (!isOfClosedWindow) deactivateNow(self, _cmd);
}

@end
