#include "tests/macos/menu/OnScreen.h"

#include <cstdint>

#include "platform/macos/support/Held.h"
#include "tests/macos/desktop/MacDesktop.h"

namespace tilwin::macos {
namespace {

using namespace std::chrono_literals;

void post(NSEventType type, NSView* view) {
  const NSRect bounds = [view bounds];
  const NSPoint middle = NSMakePoint(NSMidX(bounds), NSMidY(bounds));
  NSEvent* const event = [NSEvent mouseEventWithType:type
                                            location:[view convertPoint:middle toView:nil]
                                       modifierFlags:0
                                           timestamp:0
                                        windowNumber:[[view window] windowNumber]
                                             context:nil
                                         eventNumber:0
                                          clickCount:1
                                            pressure:1];
  [NSApp postEvent:event atStart:NO];
}

}  // namespace

bool isOnScreen(NSWindow* window) {
  if (![window isVisible]) return false;
  const auto number = reinterpret_cast<std::uintptr_t>([window windowRef]);
  return macDesktop().desktop().viewable(static_cast<desktop::WindowId>(number));
}

void click(MainQueue& queue, NSView* view, Button button) {
  const bool isLeft = button == Button::left;
  post(isLeft ? NSLeftMouseDown : NSRightMouseDown, view);
  queue.postAfter(30ms, [held = retained(view), isLeft] {
    if ([held.get() window] != nil) post(isLeft ? NSLeftMouseUp : NSRightMouseUp, held.get());
  });
}

}  // namespace tilwin::macos
