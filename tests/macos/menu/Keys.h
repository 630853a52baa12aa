#pragma once

#import <AppKit/AppKit.h>

namespace tilwin::macos {

/// A key as macOS reports it.
struct Key {
  unsigned short code = 0;  ///< its position on a Mac keyboard
  NSString* characters = @"";
  NSEventModifierFlags modifiers = 0;
};

extern const Key returnKey;
extern const Key escapeKey;

/// The key that types this without modifiers; throws std::logic_error if none does.
[[nodiscard]] Key keyOf(char character, NSEventModifierFlags modifiers = 0);

/// Posts the key's press and release to the open dialog, else the key window. The next run of the event loop
/// handles them.
void press(const Key& key);

}  // namespace tilwin::macos
