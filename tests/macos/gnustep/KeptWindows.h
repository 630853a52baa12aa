#pragma once

#import <AppKit/AppKit.h>

namespace tilwin::macos {

/// Keeps a window that has been shown, without its content, until the program ends: GNUstep's events may
/// still be about it when nobody else holds it.
void keepWindow(NSWindow* window);

}  // namespace tilwin::macos
