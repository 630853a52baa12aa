#pragma once

#import <AppKit/AppKit.h>

namespace tilwin::macos {

/// How often assistive technology has been told that the view's value is another.
[[nodiscard]] int accessibilityValueChanges(NSView* view);

}  // namespace tilwin::macos
