#pragma once

#import <AppKit/AppKit.h>

namespace tilwin::macos {

/// Every state of the event loop, also that of an open dialog or menu. Named one by one, as not every
/// implementation counts all three among the common modes. Autoreleased.
[[nodiscard]] inline NSArray* everyRunLoopMode() {
  return @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ];
}

}  // namespace tilwin::macos
