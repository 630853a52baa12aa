#pragma once

#import <AppKit/AppKit.h>

#include "platform/ports/MainQueue.h"

namespace tilwin::macos {

/// Whether the X server shows the window.
[[nodiscard]] bool isOnScreen(NSWindow* window);

enum class Button { left, right };

/// Presses the mouse button in the middle of the view and releases it a little later, as AppKit misses a
/// release that comes at once. The event loop handles both; releasing is a task of the queue.
void click(MainQueue& queue, NSView* view, Button button = Button::left);

}  // namespace tilwin::macos
