#pragma once

#import <Foundation/Foundation.h>

namespace tilwin::macos {

/// The keys of a Mac keyboard with ANSI layout, by what each types without modifiers: a lower-case character,
/// or AppKit's character for a key that types none. Both throw std::logic_error for what is on no key.

[[nodiscard]] unsigned short keyCodeOf(unichar character);
[[nodiscard]] unichar characterOf(unsigned keyCode);

}  // namespace tilwin::macos
