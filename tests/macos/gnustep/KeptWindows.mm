#include "tests/macos/gnustep/KeptWindows.h"

#include "platform/macos/support/Held.h"

namespace tilwin::macos {

void keepWindow(NSWindow* window) {
  static NSMutableArray* const windows = [[NSMutableArray alloc] init];
  if (window == nil) return;
  [window orderOut:nil];
  [window setContentView:owned([[NSView alloc] initWithFrame:NSZeroRect]).get()];
  [windows addObject:window];
}

}  // namespace tilwin::macos
