#pragma once

#import <AppKit/AppKit.h>

namespace tilwin::macos {

/// What the Escape key types.
inline constexpr unichar escapeCharacter = 0x1b;

/// What the key of a key event types without modifiers other than Shift; 0 if that is not one character.
[[nodiscard]] inline unichar typedCharacter(NSEvent* event) {
  NSString* const typed = [event charactersIgnoringModifiers];
  return [typed length] == 1 ? [typed characterAtIndex:0] : u'\0';
}

}  // namespace tilwin::macos
